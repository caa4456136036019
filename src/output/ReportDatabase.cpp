#include "output/ReportDatabase.h"

#include "data/Connections.h"
#include "data/RunHistory.h"
#include "globals/ProgramGlobals.h"
#include "platform/FileSystem.h"

using namespace Qt::StringLiterals;

namespace {

/// The way of all three: what goes wrong with the statement is written down, the statement first.
template <typename Work>
bool Recorded(const QString& sql, Work work) {
    try {
        return work();
    } catch (const platform::RuntimeError& error) {
        RecordRunError(sql + error.Description());
        return false;
    }
}

bool OpenOn(database::Recordset& recordset, const QString& sql, database::CursorType cursor, database::LockType lock) {
    return Recorded(sql, [&] {
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
    return Recorded(sql, [&] {
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
