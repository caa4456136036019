#include "data/UserConfiguration.h"

#include "data/FileCopies.h"
#include "data/FolderPath.h"
#include "data/ReportHostTrust.h"
#include "data/RunHistory.h"
#include "frame/ProgramGlobals.h"
#include "platform/Services.h"
#include "screen/msgお待ち.h"

using namespace Qt::StringLiterals;
using platform::kPathSeparator;

namespace {

constexpr long kCopyFailed = 75;

/// The files of one generation, in the order of their copying.
struct ReportFiles {
    QString workTables;
    QStringList forms;  ///< the later ones only where the common folder has them
};

/// The one trap: the failure is written down, and the next step is done.
template <typename Step>
void Carry(Step step) {
    try {
        step();
    } catch (const platform::RuntimeError& error) {
        const InstallationLayout& layout = Globals().Layout;
        RecordRunError(error.Description() + u" User ConfF="_s + layout.UserConfFolder + u" User Report ="_s +
                       layout.UserReportFolder);
    }
}

QString ConfigurationName(int kind) {
    switch (kind) {
        case kAccdb:
            return u"usrcnfg.accdb"_s;
        case kMdb:
            return u"usrcnfg.mdb"_s;
        default:
            return {};
    }
}

/// What a killed program left unfinished in a file that has gone since: the engine would undo it in the fresh copy.
void RemoveJournal(const QString& database) { platform::Services().files->RemoveFile(database + u"-journal"_s); }

void Copy(const QString& from, const QString& to, const QString& name) {
    Carry([&] {
        const QString target = to + kPathSeparator + name;
        RemoveJournal(target);
        if (!CopyFileOver(from + kPathSeparator + name, target))
            throw platform::RuntimeError(kCopyFailed, u"ファイル %1 を複写できません。"_s.arg(name));
    });
}

void PrepareConfiguration() {
    const InstallationLayout& layout = Globals().Layout;
    const QString name = ConfigurationName(layout.ConfigDbKind);
    if (name.isEmpty()) return;
    const QString own = layout.UserConfFolder + kPathSeparator + name;
    Carry([&] { EnsureFolderPath(own); });
    if (!FileExistsCheck(own)) Copy(layout.CommonConfFolder, layout.UserConfFolder, name);
}

void Relink(const QString& formsFile, const QString& workTables) {
    Carry([&] {
        const auto file = platform::Services().tableEngine->OpenDatabase(formsFile);
        for (platform::TableDef& table : file->TableDefs()) {
            if (table.Attributes != platform::kLinkedTable) continue;
            table.Connect = platform::ConnectTextOf(workTables);
            Carry([&] { file->RefreshLink(table); });
        }
    });
}

/// The work tables alone tell the next start that all is there, so they must not stay where the copy of a forms file
/// broke off. A file that the common folder doesn't have either is no reason to try again.
void TakeBackUnfinished(const ReportFiles& files) {
    const InstallationLayout& layout = Globals().Layout;
    const QString own = layout.UserReportFolder + kPathSeparator;
    for (const QString& name : files.forms)
        if (FileExistsCheck(layout.CommonReportFolder + kPathSeparator + name) && !FileExistsCheck(own + name))
            platform::Services().files->RemoveFile(own + files.workTables);
}

/// The host's settings are made before any of its files is touched.
void CopyReportFiles(const ReportFiles& files) {
    const InstallationLayout& layout = Globals().Layout;
    bool hostIsThere = false;
    Carry([&] { hostIsThere = PrepareReportHost(); });
    const QString own = layout.UserReportFolder + kPathSeparator;
    Copy(layout.CommonReportFolder, layout.UserReportFolder, files.workTables);
    for (const QString& name : files.forms) Copy(layout.CommonReportFolder, layout.UserReportFolder, name);
    for (const QString& name : files.forms)
        if (hostIsThere && (name == files.forms.first() || FileExistsCheck(own + name)))
            Relink(own + name, own + files.workTables);
    TakeBackUnfinished(files);
}

/// The work tables alone tell whether a user has report files, and they are the first to be copied.
void PrepareReportFiles(const ReportFiles& files) {
    const QString workTables = Globals().Layout.UserReportFolder + kPathSeparator + files.workTables;
    Carry([&] { EnsureFolderPath(workTables); });
    if (FileExistsCheck(workTables)) return;
    ShowWaitDialog();
    CopyReportFiles(files);
    UnloadWaitDialog();
}

}  // namespace

void PrepareUserConfig() {
    PrepareConfiguration();
    InstallationLayout& layout = Globals().Layout;
    if (layout.ReportDbKind == kAccdb) PrepareReportFiles({u"repdb.accdb"_s, {u"repfrmdb.accdb"_s}});
    if (layout.ReportDbKind == kMdb) {
        PrepareReportFiles({u"repdb.mdb"_s, {u"repfrmdb.mdb"_s, u"repfrmdb.accdb"_s}});
        layout.ReportDbKind = kMdb;  // events ran meanwhile: what comes later goes by the files just prepared
    }
}
