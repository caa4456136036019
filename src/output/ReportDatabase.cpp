#include "output/ReportDatabase.h"

#include "data/Connections.h"
#include "data/Files.h"
#include "data/RunHistory.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/RowMarks.h"
#include "platform/FileSystem.h"
#include "screen/msgお待ち.h"

using namespace Qt::StringLiterals;

namespace {

/// Error handler of the three statements: logs statement and description to the run history, returns false.
template <typename Callback>
bool LogErrors(const QString& sql, Callback callback) {
    try {
        return callback();
    } catch (const platform::RuntimeError& error) {
        RecordRunError(sql + error.Description());
        return false;
    }
}

bool OpenOn(database::Recordset& recordset, const QString& sql, database::CursorType cursor, database::LockType lock) {
    return LogErrors(sql, [&] {
        recordset = database::Recordset();
        recordset.Open(sql, Globals().ReportDatabase, cursor, lock);
        return !recordset.AtBOF() && !recordset.AtEOF();
    });
}

}  // namespace

bool OpenReportDatabase() {
    const InstallationLayout& layout = Globals().Layout;
    const QString file = DesktopFileName(u"repdb"_s, layout.ReportDbKind);
    if (file.isEmpty()) return false;
    database::Connection& connection = Globals().ReportDatabase;
    connection = database::Connection();
    ApplyConnectionSettings(connection);
    connection.Scratch = true;
    connection.Open(
        DesktopConnectionString(layout.ReportDbKind, layout.UserReportFolder + platform::kPathSeparator + file + u';'));
    return true;
}

void CloseReportDatabase() noexcept {
    Globals().ReportDatabase.Close();
    Globals().ReportDatabase = database::Connection();
}

bool ExecuteReportSql(const QString& sql) {
    return LogErrors(sql, [&] {
        Globals().ReportDatabase.Execute(sql);
        return true;
    });
}

bool OpenReportForUpdate(database::Recordset& recordset, const QString& sql) {
    return OpenOn(recordset, sql, database::CursorType::Keyset, database::LockType::Optimistic);
}

bool OpenReportReadOnly(database::Recordset& recordset, const QString& sql) {
    return OpenOn(recordset, sql, database::CursorType::ForwardOnly, database::LockType::ReadOnly);
}

void OpenEmptiedWorkTable(const QString& table) {
    ExecuteReportSql(u"DELETE FROM "_s + table);
    OpenReportForUpdate(Globals().ReportRecordset, u"SELECT * FROM "_s + table);
}

void ForEachMarkedRow(const std::function<void(int row)>& callback) {
    const int count = MarkedRowCount();
    int done = 0;
    for (int row = 0; row <= Globals().LastRow; ++row) {
        if (!IsMarked(row)) continue;
        callback(row);
        PaintProgress(u"データ作成"_s, ++done, count);
    }
}

bool WorkTableHasRows(const QString& table) {
    database::Recordset& record = Globals().ReportRecordset;
    record = database::Recordset();
    OpenReportReadOnly(record, u"SELECT * FROM "_s + table);
    const bool hasRows = !record.AtBOF() && !record.AtEOF();
    record.Close();
    record = database::Recordset();
    return hasRows;
}
