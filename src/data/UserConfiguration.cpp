#include "data/UserConfiguration.h"

#include <QFileInfo>

#include "data/Connections.h"
#include "data/FileCopies.h"
#include "data/FolderPath.h"
#include "data/ReportHostTrust.h"
#include "data/RunHistory.h"
#include "globals/ProgramGlobals.h"
#include "platform/PlainFile.h"
#include "platform/PrivateFolder.h"
#include "platform/Services.h"

using namespace Qt::StringLiterals;
using platform::kPathSeparator;

namespace {

constexpr long kCopyFailed = 75;

/// The files of one generation, in the order of their copying.
struct ReportFiles {
    QString workTables;
    QStringList forms;  ///< the later ones only where the common folder has them
};

/// The one trap: the failure is written down, and the next step is done. Number of the failure, 0 for none.
template <typename Step>
long Carry(Step step) {
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

/// What a killed program left unfinished in a file that has gone since: the engine would undo it in the fresh copy.
bool RemoveJournal(const QString& database) { return platform::Services().files->RemoveFile(database + u"-journal"_s); }

/// What exists is never copied again, so a copy that differs from its source must not stay.
void CopyWhole(const QString& source, const QString& target) {
    if (!RemoveJournal(target) || !CopyFileOver(source, target))
        throw platform::RuntimeError(kCopyFailed,
                                     u"ファイル %1 を複写できません。"_s.arg(QFileInfo(target).fileName()));
    if (platform::SameContent(source, target)) return;
    platform::Services().files->RemoveFile(target);
    throw platform::RuntimeError(kCopyFailed, u"複写したファイル %1 が元と一致しません。"_s.arg(target));
}

/// True when the copy is there.
bool Copy(const QString& from, const QString& to, const QString& name) {
    return Carry([&] { CopyWhole(from + kPathSeparator + name, to + kPathSeparator + name); }) == 0;
}

void PrepareConfiguration() {
    const InstallationLayout& layout = Globals().Layout;
    const QString name = DesktopFileName(u"usrcnfg"_s, layout.ConfigDbKind);
    if (name.isEmpty()) return;
    const QString own = layout.UserConfFolder + kPathSeparator + name;
    Carry([&] { EnsureFolderPath(own); });
    if (!FileExistsCheck(own)) Copy(layout.CommonConfFolder, layout.UserConfFolder, name);
}

/// False when another start might do better. A table that is missing will be missing then as well.
bool Relink(const QString& formsFile, const QString& workTables) {
    bool whole = true;
    const long failure = Carry([&] {
        const auto file = Globals().LinkedTables->OpenDatabase(formsFile);
        for (database::TableDef& table : file->TableDefs()) {
            if (table.Attributes != database::kLinkedTable) continue;
            table.Connect = database::ConnectTextOf(workTables);
            const long refused = Carry([&] { file->RefreshLink(table); });
            whole = whole && (refused == 0 || refused == database::kNoSuchTable);
        }
    });
    return failure == 0 && whole;
}

/// The host's settings are made before any of its files is touched. False when something is left for the next start to
/// do; a file that the common folder doesn't have either is not.
bool CopyReportFiles(const ReportFiles& files) {
    const InstallationLayout& layout = Globals().Layout;
    bool hostIsThere = false;
    Carry([&] { hostIsThere = PrepareReportHost(); });
    const QString own = layout.UserReportFolder + kPathSeparator;
    const auto common = [&](const QString& name) {
        return FileExistsCheck(layout.CommonReportFolder + kPathSeparator + name);
    };
    bool whole = Copy(layout.CommonReportFolder, layout.UserReportFolder, files.workTables);
    for (const QString& name : files.forms)
        if (!Copy(layout.CommonReportFolder, layout.UserReportFolder, name) && common(name)) whole = false;
    for (const QString& name : files.forms)
        if (hostIsThere && (name == files.forms.first() || FileExistsCheck(own + name)) &&
            !Relink(own + name, own + files.workTables) && common(name))
            whole = false;
    return whole;
}

/// Without the mark nothing is copied: a copy that then broke off would pass for a whole one.
bool SetMark(const QString& mark) {
    return Carry([&] {
               if (!platform::Services().files->CreateMark(mark))
                   throw platform::RuntimeError(kCopyFailed, u"ファイル %1 を作成できません。"_s.arg(mark));
           }) == 0;
}

/// The work tables tell whether a user has report files, and they are the first to be copied. So a mark beside them
/// stands until the last one is there and linked, whatever ends the program meanwhile; where a start finds it, all is
/// copied anew.
void PrepareReportFiles(const ReportFiles& files) {
    const QString workTables = Globals().Layout.UserReportFolder + kPathSeparator + files.workTables;
    const QString mark = workTables + u"-unfinished"_s;
    Carry([&] { EnsureFolderPath(workTables); });
    if (FileExistsCheck(workTables) && !FileExistsCheck(mark)) return;
    platform::Services().waitDialog->Show();
    if (SetMark(mark) && CopyReportFiles(files)) platform::Services().files->RemoveFile(mark);
    platform::Services().waitDialog->Unload();
}

/// A folder that can't be made is reported where the folders in it are made.
void MakeFolder(const QString& folder) {
    const platform::FileSystem& files = *platform::Services().files;
    try {
        if (!files.FolderExists(folder)) files.CreateFolder(folder);
    } catch (const platform::RuntimeError&) {
        return;
    }
}

/// False when the user's folder is not the user's alone. Then no file of it may be used, and as with an unknown install
/// kind both folders stay empty, so that the second opening fails.
bool ClaimOwnFolder() {
    InstallationLayout& layout = Globals().Layout;
    if (layout.ConfigDbKind == kNoFile && layout.ReportDbKind == kNoFile) return true;
    const QString own = QFileInfo(layout.UserConfFolder).path();
    MakeFolder(QFileInfo(own).path());
    MakeFolder(own);
    if (Carry([&] { platform::ClaimPrivateFolder(own); }) == 0) return true;
    layout.UserConfFolder.clear();
    layout.UserReportFolder.clear();
    return false;
}

}  // namespace

void PrepareUserConfig() {
    if (!ClaimOwnFolder()) return;
    PrepareConfiguration();
    InstallationLayout& layout = Globals().Layout;
    if (layout.ReportDbKind == kAccdb) PrepareReportFiles({u"repdb.accdb"_s, {u"repfrmdb.accdb"_s}});
    if (layout.ReportDbKind == kMdb) {
        PrepareReportFiles({u"repdb.mdb"_s, {u"repfrmdb.mdb"_s, u"repfrmdb.accdb"_s}});
        layout.ReportDbKind = kMdb;  // events ran meanwhile: what comes later goes by the files just prepared
    }
}
