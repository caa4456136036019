// Part of Environment.h: PrepareUserConfig.

#include "data/Environment.h"

#include <QFileInfo>

#include "data/Connections.h"
#include "data/Files.h"
#include "data/ReportHostTrust.h"
#include "data/RunHistory.h"
#include "globals/ProgramGlobals.h"
#include "platform/FileRights.h"
#include "platform/PlainFile.h"
#include "platform/Services.h"

using namespace Qt::StringLiterals;
using platform::kPathSeparator;

namespace {

constexpr long kCopyFailed = 75;

/// Report files of one file kind in the order of copying.
struct ReportFiles {
    QString workTables;
    QStringList templates;  ///< all but the first are optional
};

/// The only error handler: records the failure and continues with the next step. Returns the error number, 0 for none.
template <typename Step>
long TryStep(Step step) {
    try {
        step();
        return 0;
    } catch (const platform::RuntimeError& error) {
        const InstallationLayout& layout = Globals().Layout;
        RecordRunError(error.Description() + u" User ConfF="_s + layout.UserConfFolder + u" User Report ="_s +
                       layout.UserReportFolder);
        return error.Number();
    }
}

/// Removes the hot journal of a deleted copy: the engine would roll it back into the new copy.
bool RemoveJournal(const QString& database) { return platform::Services().files->RemoveFile(database + u"-journal"_s); }

/// An existing file is never copied again, so a copy that differs from its source is deleted.
void CopyCompletely(const QString& source, const QString& target) {
    if (!RemoveJournal(target) || !CopyFileOver(source, target))
        throw platform::RuntimeError(kCopyFailed,
                                     u"ファイル %1 を複写できません。"_s.arg(QFileInfo(target).fileName()));
    if (platform::SameContent(source, target)) return;
    platform::Services().files->RemoveFile(target);
    throw platform::RuntimeError(kCopyFailed, u"複写したファイル %1 が元と一致しません。"_s.arg(target));
}

/// True if the file was copied.
bool Copy(const QString& from, const QString& to, const QString& name) {
    return TryStep([&] { CopyCompletely(from + kPathSeparator + name, to + kPathSeparator + name); }) == 0;
}

void PrepareConfiguration() {
    const InstallationLayout& layout = Globals().Layout;
    const QString name = DesktopFileName(u"usrcnfg"_s, layout.ConfigDbKind);
    if (name.isEmpty()) return;
    const QString own = layout.UserConfFolder + kPathSeparator + name;
    TryStep([&] { EnsureFolderPath(own); });
    if (!FileExistsCheck(own)) Copy(layout.CommonConfFolder, layout.UserConfFolder, name);
}

/// False if the next start should retry. A missing table is not retried, since it will still be missing then.
bool Relink(const QString& templateFile, const QString& workTables) {
    bool complete = true;
    const long failure = TryStep([&] {
        const auto file = Globals().LinkedTables->OpenDatabase(templateFile);
        for (database::TableDef& table : file->TableDefs()) {
            if (table.Attributes != database::kLinkedTable) continue;
            table.Connect = database::ConnectTextOf(workTables);
            const long refused = TryStep([&] { file->RefreshLink(table); });
            complete = complete && (refused == 0 || refused == database::kNoSuchTable);
        }
    });
    return failure == 0 && complete;
}

/// The host's settings are made before its files are touched. False if the next start should retry; a file that is
/// missing in the common folder as well is not retried.
bool CopyReportFiles(const ReportFiles& files) {
    const InstallationLayout& layout = Globals().Layout;
    bool hostIsInstalled = false;
    TryStep([&] { hostIsInstalled = PrepareReportHost(); });
    const QString own = layout.UserReportFolder + kPathSeparator;
    const auto common = [&](const QString& name) {
        return FileExistsCheck(layout.CommonReportFolder + kPathSeparator + name);
    };
    bool complete = Copy(layout.CommonReportFolder, layout.UserReportFolder, files.workTables);
    for (const QString& name : files.templates)
        if (!Copy(layout.CommonReportFolder, layout.UserReportFolder, name) && common(name)) complete = false;
    for (const QString& name : files.templates)
        if (hostIsInstalled && (name == files.templates.first() || FileExistsCheck(own + name)) &&
            !Relink(own + name, own + files.workTables) && common(name))
            complete = false;
    return complete;
}

/// If the marker cannot be created, nothing is copied: an interrupted copy would look complete.
bool CreateMarker(const QString& marker) {
    return TryStep([&] {
               if (!platform::Services().files->CreateMark(marker))
                   throw platform::RuntimeError(kCopyFailed, u"ファイル %1 を作成できません。"_s.arg(marker));
           }) == 0;
}

/// Existing work tables mean that the user has report files, but they are copied first. A marker file therefore exists
/// until the last file has been copied and linked; a start that finds it, after a crash for example, copies everything
/// again.
void PrepareReportFiles(const ReportFiles& files) {
    const QString workTables = Globals().Layout.UserReportFolder + kPathSeparator + files.workTables;
    const QString marker = workTables + u"-unfinished"_s;
    TryStep([&] { EnsureFolderPath(workTables); });
    if (FileExistsCheck(workTables) && !FileExistsCheck(marker)) return;
    platform::Services().waitDialog->Show();
    if (CreateMarker(marker) && CopyReportFiles(files)) platform::Services().files->RemoveFile(marker);
    platform::Services().waitDialog->Unload();
}

/// A failure is ignored: it is reported when the subfolders are created.
void MakeFolder(const QString& folder) {
    const platform::FileSystem& files = *platform::Services().files;
    try {
        if (!files.FolderExists(folder)) files.CreateFolder(folder);
    } catch (const platform::RuntimeError&) {
        return;
    }
}

/// False if the user's folder is not private. None of its files may be used then; both folders are emptied as for an
/// unknown install kind, so that the second opening fails.
bool ClaimOwnFolder() {
    InstallationLayout& layout = Globals().Layout;
    if (layout.ConfigDbKind == FileKind::None && layout.ReportDbKind == FileKind::None) return true;
    const QString own = QFileInfo(layout.UserConfFolder).path();
    MakeFolder(QFileInfo(own).path());
    MakeFolder(own);
    if (TryStep([&] { platform::ClaimPrivateFolder(own); }) == 0) return true;
    layout.UserConfFolder.clear();
    layout.UserReportFolder.clear();
    return false;
}

}  // namespace

void PrepareUserConfig() {
    if (!ClaimOwnFolder()) return;
    PrepareConfiguration();
    InstallationLayout& layout = Globals().Layout;
    if (layout.ReportDbKind == FileKind::Accdb) PrepareReportFiles({u"repdb.accdb"_s, {u"repfrmdb.accdb"_s}});
    if (layout.ReportDbKind == FileKind::Mdb) {
        PrepareReportFiles({u"repdb.mdb"_s, {u"repfrmdb.mdb"_s, u"repfrmdb.accdb"_s}});
        layout.ReportDbKind = FileKind::Mdb;  // event handlers may have changed it; later steps must use these files
    }
}
