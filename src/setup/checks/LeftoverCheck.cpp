// Part of Checks.h: the check for leftovers of killed processes.
#include <QDir>
#include <QFileInfo>

#include "platform/FileRights.h"
#include "platform/ScratchFolder.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/template/OutputTarget.h"
#include "report-host/template/TemplateFile.h"
#include "setup/checks/Checks.h"
#include "setup/storage/Installation.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

QStringList FaultsIn(const QString& folder, const QString& prefix, const QString& known) {
    QStringList faults;
    for (const platform::ScratchLeftover& leftover : platform::ScratchLeftovers(folder, prefix))
        faults.append(leftover.known
                          ? known.arg(leftover.path, platform::UserName(leftover.owner))
                          : u"途中で終わった処理のフォルダ %1 が残っています。中を確かめて削除してください。"_s.arg(
                                leftover.path));
    return faults;
}

/// Output folders of the reports in a template file. An unreadable file is reported by other checks.
QStringList OutputFolders(const QString& templateFile) {
    QStringList folders;
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

QStringList LeftoverFaults(const QString& root) {
    QStringList faults = FaultsIn(
        QFileInfo(QFileInfo(root).canonicalFilePath()).path(), kWorkFolderPrefix,
        u"途中で終わった suite-setup init のフォルダ %1 が残っています。利用者 %2 が次に init を実行すると消えます。"_s);
    for (const QString& folder : FoldersOfTheHost(root))
        faults +=
            FaultsIn(folder, kPrintFolderPrefix,
                     u"途中で終わった帳票ホストのフォルダ %1 が残っています。利用者 %2 が次に印刷すると消えます。"_s);
    return faults;
}

}  // namespace setup
