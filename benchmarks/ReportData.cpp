// The work table of the list filled, and written as a text file; compared with prepared inserts into the same file with
// the same settings, and with the sqlite3 shell and iconv.

#include <sqlite3.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "BenchmarkProgram.h"
#include "PairedRuns.h"
#include "data/Catalogue.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/StaffQuery.h"
#include "output/CsvWriter.h"
#include "output/ReportData.h"
#include "output/ReportDatabase.h"
#include "support/HeadForm.h"
#include "support/StaffDatabase.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int kRows = 32'753;  // a full row store with eight rows on the screen
const QString kTable = u"要員名簿照会"_s;

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}

void Run(sqlite3* database, const char* sql) {
    if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail(sqlite3_errmsg(database));
}

/// The work table as the baseline writes it.
class WorkFile {
  public:
    explicit WorkFile(const QString& path) {
        if (sqlite3_open(path.toUtf8().constData(), &database_) != SQLITE_OK) Fail("cannot open the work file");
        QStringList columns;
        for (const ColumnDefinition& column : SuiteTable(DatabaseKind::Report, kTable).columns)
            columns << column.name + u' ' + column.type;
        Run(database_, (u"CREATE TABLE IF NOT EXISTS "_s + kTable + u" ("_s + columns.join(u',') + u')').toUtf8());
        Run(database_, "PRAGMA synchronous=OFF");
        Run(database_, "PRAGMA journal_mode=MEMORY");
        places_ = QStringList(columns.size(), u"?"_s).join(u',');
    }
    ~WorkFile() { sqlite3_close(database_); }
    WorkFile(const WorkFile&) = delete;
    WorkFile& operator=(const WorkFile&) = delete;

    /// Keeps the table's current rows for Fill.
    void TakeRows() {
        sqlite3_stmt* select = Prepare(u"SELECT * FROM "_s + kTable + u" ORDER BY rowid"_s);
        while (sqlite3_step(select) == SQLITE_ROW) {
            for (int column = 0; column < sqlite3_column_count(select); ++column) {
                const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(select, column));
                cells_.push_back(text == nullptr ? QByteArray() : QByteArray(text));
            }
        }
        columns_ = sqlite3_column_count(select);
        sqlite3_finalize(select);
    }

    /// One statement per row, each in its own transaction.
    void Fill() {
        Run(database_, (u"DELETE FROM "_s + kTable).toUtf8());
        sqlite3_stmt* insert = Prepare(u"INSERT INTO "_s + kTable + u" VALUES ("_s + places_ + u')');
        for (size_t cell = 0; cell < cells_.size();) {
            for (int column = 1; column <= columns_; ++column, ++cell) {
                const QByteArray& text = cells_[cell];
                if (text.isNull())
                    sqlite3_bind_null(insert, column);
                else
                    sqlite3_bind_text(insert, column, text.constData(), static_cast<int>(text.size()), SQLITE_STATIC);
            }
            if (sqlite3_step(insert) != SQLITE_DONE) Fail(sqlite3_errmsg(database_));
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
    }
    size_t RowCount() const { return cells_.size() / static_cast<size_t>(columns_); }

  private:
    sqlite3_stmt* Prepare(const QString& sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(database_, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
            Fail(sqlite3_errmsg(database_));
        return statement;
    }

    sqlite3* database_ = nullptr;
    QString places_;
    std::vector<QByteArray> cells_;
    int columns_ = 1;
};

void PrepareProgram(StaffDatabase& database, HeadForm& form, const QString& folder) {
    database.AddManyStaff(kRows);
    ProgramGlobals& globals = Globals();
    globals.MainForm = &form;
    globals.RowsPerPage = 8;
    globals.ScopeOfficeCode = u"000"_s;
    globals.ProgramId = globals.ReportName = kTable;
    globals.OfficeCount = 2;
    globals.Environment.OperatingOfficeCode = u"001"_s;
    globals.Office.名称 = u"東京本社"_s;
    globals.Layout.ReportDbKind = FileKind::Accdb;
    globals.Layout.UserReportFolder = folder;
    form.Plain(u"表示順区分名称"_s).text = u"所属コード順"_s;
    SetInitialConditions();
    database.OpenConnections();
    ResetRowStore();
    RunStaffSearch();
    if (globals.LastRow + 1 != kRows) Fail("the list is not full");
}

void WriteByProgram(const QString& target) {
    database::Recordset& records = Globals().ReportRecordset;
    if (!OpenReportReadOnly(records, u"SELECT * FROM "_s + kTable)) Fail("the work table is empty");
    WriteRecordsetAsCsv(records, target);
    records.Close();
}

void WriteByShell(const QString& database, const QString& target) {
    QProcess shell;
    const QString command = u"sqlite3 -csv -header '%1' 'SELECT * FROM %2' | iconv -c -f UTF-8 -t CP932 > '%3'"_s.arg(
        database, kTable, target);
    shell.start(u"/bin/sh"_s, {u"-c"_s, command});
    if (!shell.waitForFinished(-1) || shell.exitCode() != 0) Fail("sqlite3 or iconv failed");
}
}  // namespace

int main(int argc, char** argv) {
    const BenchmarkProgram program(argc, argv, 7);
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"repdb.accdb"_s);
    WorkFile byHand(file);
    StaffDatabase database;
    HeadForm form;
    PrepareProgram(database, form, folder.path());
    if (!OpenReportDatabase() || !BuildReportData()) Fail("no report data");
    byHand.TakeRows();
    if (byHand.RowCount() != kRows) Fail("rows are missing in the work table");

    const PairedRuns runs(program.Pairs());
    std::printf("work table of %d rows\n", kRows);
    runs.Measure("filled by the program", BuildReportData, "prepared inserts by hand", [&] { byHand.Fill(); });
    const QString ours = folder.filePath(u"program.csv"_s), theirs = folder.filePath(u"shell.csv"_s);
    runs.Measure(
        "text file of the program", [&] { WriteByProgram(ours); }, "sqlite3 -csv | iconv",
        [&] { WriteByShell(file, theirs); });
    std::printf("%.1f and %.1f MB\n", static_cast<double>(QFile(ours).size()) / 1e6,
                static_cast<double>(QFile(theirs).size()) / 1e6);
    return 0;
}
