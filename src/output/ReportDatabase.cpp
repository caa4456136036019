#include "output/ReportDatabase.h"

#include "data/Connections.h"
#include "data/RunHistory.h"
#include "frame/ProgramGlobals.h"
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

bool OpenOn(platform::Recordset& recordset, const QString& sql, platform::CursorType cursor, platform::LockType lock) {
    return Recorded(sql, [&] {
        recordset = platform::Recordset();
        recordset.Open(sql, Globals().ReportDatabase, cursor, lock);
        return !recordset.AtBOF() && !recordset.AtEOF();
    });
}

}  // namespace

bool OpenReportDatabase() {
    const InstallationLayout& layout = Globals().Layout;
    const QString file = DesktopFileName(u"repdb"_s, layout.ReportDbKind);
    if (file.isEmpty()) return false;
    platform::Connection& connection = Globals().ReportDatabase;
    connection = platform::Connection();
    ApplyConnectionSettings(connection);
    connection.Scratch = true;
    connection.Open(
        DesktopConnectionString(layout.ReportDbKind, layout.UserReportFolder + platform::kPathSeparator + file + u';'));
    return true;
}

void CloseReportDatabase() noexcept {
    Globals().ReportDatabase.Close();
    Globals().ReportDatabase = platform::Connection();
}

bool ExecuteReportSql(const QString& sql) {
    return Recorded(sql, [&] {
        Globals().ReportDatabase.Execute(sql);
        return true;
    });
}

bool OpenReportForUpdate(platform::Recordset& recordset, const QString& sql) {
    return OpenOn(recordset, sql, platform::CursorType::Keyset, platform::LockType::Optimistic);
}

bool OpenReportReadOnly(platform::Recordset& recordset, const QString& sql) {
    return OpenOn(recordset, sql, platform::CursorType::ForwardOnly, platform::LockType::ReadOnly);
}
