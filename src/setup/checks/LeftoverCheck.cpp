// Part of Checks.h: the check for leftovers of killed processes.
#include <QDir>
#include <QFileInfo>

#include "platform/FileRights.h"
#include "platform/ScratchFolder.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/template/OutputTarget.h"
#include "report-host/template/TemplateFile.h"
#include "setup/checks/Checks.h"
#include "setup/schema/Integrity.h"
#include "setup/storage/Installation.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

struct LeftoverKind {
    QString prefix;
    QString program;  ///< that left the folder
    QString cure;     ///< what the user can do to remove it
};

QString RemedyFor(const platform::ScratchLeftover& leftover, const LeftoverKind& kind) {
    if (!leftover.known) return u"中を確かめて、要らなければ削除してください。"_s;
    return u"利用者 %1 が次に%2と消えます。"_s.arg(platform::UserName(leftover.owner), kind.cure);
}

void CheckFolder(CheckReport& report, const QString& folder, const LeftoverKind& kind) {
    for (const platform::ScratchLeftover& leftover : platform::ScratchLeftovers(folder, kind.prefix)) {
        Finding finding{.what = u"途中で終わった%1のフォルダ %2 が残っています。"_s.arg(
                            leftover.known ? kind.program : u"処理"_s, leftover.path),
                        .effect = u"ありません。要員のデータが中に残っているかもしれません。"_s};
        finding.remedy = RemedyFor(leftover, kind);
        // A replacement that was killed at the wrong moment has left the only copy of an installation there.
        if (!HoldsInstallation(leftover.path + u"/old"_s))
            finding.commands = {u"rm -r -- "_s + ShellWord(leftover.path)};
        report.Add(finding);
    }
}

/// Output folders of the reports in a template file. An unreadable file is reported by other checks.
QStringList OutputFolders(const QString& templateFile) {
    QStringList folders;
    if (NeedsRecovery(templateFile)) return folders;  // reading it would finish the write
    try {
        for (const QString& report : QStringList{QString()} + report::TemplateFile(templateFile).Names())
            if (const OutputTarget place = ReadOutputTarget(templateFile, report);
                place.kind == OutputTarget::Kind::Folder)
                folders.append(place.name);
    } catch (const platform::RuntimeError&) {
        return folders;
    }
    return folders;
}

QStringList FoldersOfTheHost(const QString& root) {
    QStringList files = TemplateFilesIn(CommonPlaces(root).report), folders{QDir::tempPath()};
    for (const FilePlaces& places : AllPrivatePlaces(root)) files += TemplateFilesIn(places.report);
    for (const QString& file : files) folders += OutputFolders(file);
    folders.removeDuplicates();
    return folders;
}

}  // namespace

void CheckLeftovers(const CheckScope& scope, CheckReport& report) {
    CheckFolder(report, QFileInfo(QFileInfo(scope.root).canonicalFilePath()).path(),
                {kWorkFolderPrefix, u" suite-setup init "_s, u" init を実行する"_s});
    for (const QString& folder : FoldersOfTheHost(scope.root))
        CheckFolder(report, folder, {kPrintFolderPrefix, u"帳票ホスト"_s, u"印刷する"_s});
}

}  // namespace setup
