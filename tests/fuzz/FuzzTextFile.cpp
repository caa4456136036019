// The text file: for any field values it has one header and the quoted fields in code page 932.

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include "database/Database.h"
#include "database/sqlite/SqliteQuery.h"
#include "fuzz/FuzzInput.h"
#include "output/CsvWriter.h"
#include "text/CodePage932.h"

using namespace Qt::StringLiterals;

namespace {

/// A work table with one row of three fields, the last one an amount.
class WorkTable {
  public:
    WorkTable() {
        sqlite3* made = nullptr;
        sqlite3_open(Path().toUtf8().constData(), &made);
        sqlite3_exec(made, "PRAGMA journal_mode = MEMORY; CREATE TABLE t (a TEXT, b TEXT, c CURRENCY)", nullptr,
                     nullptr, nullptr);
        sqlite3_close(made);
        connection_.Open(u"Provider=Microsoft.ACE.OLEDB.12.0;Data Source="_s + Path());
    }
    QString Target() const { return folder_.filePath(u"out.csv"_s); }
    database::Recordset With(const QString& a, const QString& b, const QString& c) {
        connection_.Execute(u"DELETE FROM t"_s);
        database::Recordset rows;
        rows.Open(u"SELECT * FROM t"_s, connection_, database::CursorType::Keyset, database::LockType::Optimistic);
        rows.AddNew();
        rows.Write(u"a", a);
        rows.Write(u"b", b);
        rows.Write(u"c", c);
        rows.Update();
        rows.Close();
        rows.Open(u"SELECT * FROM t"_s, connection_);
        return rows;
    }

  private:
    QString Path() const { return folder_.filePath(u"work.accdb"_s); }
    QTemporaryDir folder_;
    database::Connection connection_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static WorkTable table;
    FuzzInput input(data, size);
    const QString a = input.Text(), b = input.Text(), c = input.Text();
    database::Recordset rows = table.With(a, b, c);
    WriteRecordsetAsCsv(rows, table.Target());
    QFile file(table.Target());
    Require(file.open(QIODevice::ReadOnly), "the file is there");
    const QByteArray written = file.readAll();
    const QByteArray begin = "\"a\",\"b\",\"c\"\r\n\"" + Encode932(a).bytes + "\",\"" + Encode932(b).bytes + "\",";
    Require(written.startsWith(begin), "heading and texts stand as they are");
    Require(written.endsWith("\r\n"), "the last line is whole");
    return 0;
}
