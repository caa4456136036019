#include "data/Environment.h"

#include <QStringView>
#include <optional>

#include "data/Connections.h"
#include "data/Files.h"
#include "globals/ProgramGlobals.h"
#include "platform/RuntimeError.h"
#include "platform/Services.h"

using namespace Qt::StringLiterals;
using platform::kPathSeparator;

namespace {

constexpr qsizetype kNameBuffer = 255;

/// The path before the marker folder, including the separator. The first occurrence anywhere in the path counts, and
/// "prgbin" takes precedence over "prgsrc".
std::optional<QString> FindRootPrefix(const QString& applicationFolder) {
    for (const QStringView marker : {u"prgbin", u"prgsrc"}) {
        const qsizetype found = applicationFolder.indexOf(marker, 0, Qt::CaseInsensitive);
        if (found >= 0) return applicationFolder.first(found);
    }
    return std::nullopt;
}

void ReadNames() {
    ProgramGlobals& globals = Globals();
    globals.OsUserName = ReadOsUserName();
    globals.ComputerName = ReadComputerName();
    globals.UserId = globals.OsUserName;
}

/// The user name becomes a folder below "users", so it must not contain or be a relative path.
bool IsUsableFolderName(const QString& name) {
    return !name.isEmpty() && name != u"."_s && name != u".."_s && !name.contains(u'/') && !name.contains(u'\\');
}

void SetFolders(const QString& prefix) {
    InstallationLayout& layout = Globals().Layout;
    layout.RootFolder = prefix.chopped(prefix.isEmpty() ? 0 : 1);
    layout.ProgramFolder = prefix + u"prgbin"_s;
    layout.CommonConfFolder = prefix + u"conf"_s;
    layout.CommonReportFolder = prefix + u"report"_s;
    layout.ManualFolder = prefix + u"manual"_s;
}

/// Returns the path of the common configuration file, empty if there is none.
QString ProbeFiles(const QString& prefix) {
    InstallationLayout& layout = Globals().Layout;
    const DesktopFile general = FindDesktopFile(prefix + u"data"_s, u"gnrdb"_s);
    layout.GeneralDbPath = general.path;
    layout.GeneralDbKind = general.kind;
    const DesktopFile config = FindDesktopFile(layout.CommonConfFolder, u"usrcnfg"_s);
    layout.ConfigDbKind = config.kind;
    layout.ReportDbKind = FindDesktopFile(layout.CommonReportFolder, u"repdb"_s).kind;
    return config.path;
}

void ShowOpenError(const platform::RuntimeError& error) {
    platform::Services().dialogs->ShowMessage(u"SYB_OPEN ERROR"_s + QString::number(error.Number()) + u' ' +
                                                  platform::TextForPeople(error) + u"\rsysopen error"_s,
                                              QString());
}

/// Determines names, folders and files, then opens the common configuration file.
bool OpenCommonConfig() {
    ProgramGlobals& globals = Globals();
    globals.ConfigConnectionOpen = false;
    ReadNames();
    const std::optional<QString> prefix = FindRootPrefix(platform::Services().system->ApplicationFolder());
    if (!prefix || !IsUsableFolderName(globals.OsUserName)) return false;
    SetFolders(*prefix);
    const QString commonFile = ProbeFiles(*prefix);
    if (globals.Layout.ConfigDbKind == FileKind::None) return false;
    OpenConfigConnection(ConfigConnectionString(globals.Layout.ConfigDbKind, commonFile));
    globals.ConfigConnectionOpen = true;
    return true;
}

bool TryOpenCommonConfig() {
    try {
        return OpenCommonConfig();
    } catch (const platform::RuntimeError& error) {
        ShowOpenError(error);
        return Globals().ConfigConnectionOpen;
    }
}

/// For install kinds other than 0 and 1 both folders stay empty, so the second opening fails.
void ChooseFoldersInUse() {
    ProgramGlobals& globals = Globals();
    InstallationLayout& layout = globals.Layout;
    if (globals.Environment.InstallKind == 0) {
        layout.UserConfFolder = layout.CommonConfFolder;
        layout.UserReportFolder = layout.CommonReportFolder;
    } else if (globals.Environment.InstallKind == 1) {
        const QString own =
            layout.RootFolder + kPathSeparator + u"users"_s + kPathSeparator + globals.OsUserName + kPathSeparator;
        layout.UserConfFolder = own + u"conf"_s;
        layout.UserReportFolder = own + u"report"_s;
        PrepareUserConfig();
    }
}

/// ConfigConnectionOpen stays true in between, even if the second opening fails.
void OpenConfigInUse() {
    ProgramGlobals& globals = Globals();
    globals.ConfigConnection.Close();
    globals.ConfigConnection = database::Connection();
    ChooseFoldersInUse();
    OpenConfigConnection(ConfigConnectionString(globals.Layout.ConfigDbKind, UserConfigDataSource()));
    globals.ConfigConnectionOpen = true;
}

QString ReadName(void (platform::SystemInformation::*read)(QString&) const) {
    QString buffer(kNameBuffer, u' ');
    ((*platform::Services().system).*read)(buffer);
    return CutAtNull(buffer);
}

}  // namespace

void MeasureScreen() { Globals().ScreenSize = platform::Services().system->ScreenSize(); }

QString ReadOsUserName() { return ReadName(&platform::SystemInformation::ReadUserName); }

QString ReadComputerName() { return ReadName(&platform::SystemInformation::ReadComputerName); }

QString CutAtNull(const QString& text) {
    const qsizetype found = text.indexOf(QChar(u'\0'));
    return found > 0 ? text.first(found) : QString();
}

// The common file determines whether there is a private one, so it is read first. If a private one is used, the row of
// 動作環境定義 is read again from it; that of データベース定義 is not.
bool LoadEnvironment() {
    if (!TryOpenCommonConfig()) return false;
    ReadGeneralDatabaseDefinition();
    ReadInstallation();
    OpenConfigInUse();
    ReadEnvironmentDefinition();
    Globals().ScopeOfficeCode = Globals().Environment.OperatingOfficeCode;
    return Globals().ConfigConnectionOpen;
}
