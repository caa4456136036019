// Part of Installer.h: the programs of an installation and the registered report host.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "data/ReportHostTrust.h"
#include "platform/AtomicFile.h"
#include "platform/PlainFile.h"
#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

const QString kReportHost = u"report-host"_s;
const QStringList kPrograms{u"要員名簿照会"_s, u"要員台帳更新"_s, u"suite-setup"_s};

struct ProgramCopy {
    QString source;
    QString target;  ///< relative to the installation's folder
};

/// The name of a host folder is a version; one of them is registered.
QStringList HostFolders(const QString& root) {
    QStringList folders;
    for (const QString& name : QDir(root + u"/host"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        folders.append(u"host/"_s + name + u'/');
    return folders.isEmpty() ? QStringList{ReportHostFolder(root).mid(root.size() + 1)} : folders;
}

QList<ProgramCopy> Copies(const QString& programFolder, const QString& root) {
    QList<ProgramCopy> copies;
    for (const QString& program : kPrograms) copies.append({programFolder + u'/' + program, u"prgbin/"_s + program});
    for (const QString& folder : HostFolders(root))
        copies.append({programFolder + u'/' + kReportHost, folder + kReportHostProgram});
    return copies;
}

/// Copies a file with its mode.
void PutFile(const QString& source, const QString& target) {
    platform::AtomicFile file(target);
    // Without the bits that describe the current user's access, which are set for root whatever the mode.
    const auto ofThisUser = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
    const QFile::Permissions permissions = QFile::permissions(source) & ~ofThisUser;
    if (!QDir().mkpath(QFileInfo(target).path()) || !ReplaceByCopy(source, file, permissions))
        throw platform::RuntimeError(kWorkFailed, u"%1 を %2 に複写できません。"_s.arg(source, target));
}

QString HostProgramFile(const QString& root) { return ReportHostFolder(root) + kReportHostProgram; }

}  // namespace

QStringList InstallPrograms(const QString& programFolder, const QString& root) {
    QStringList done;
    if (programFolder.isEmpty()) return done;
    for (const auto& [source, target] : Copies(programFolder, root)) {
        const QString file = root + u'/' + target;
        if (!QFileInfo(source).isFile() || platform::SameContent(source, file)) continue;
        PutFile(source, file);
        done.append(target);
    }
    return done;
}

bool HoldsPrograms(const QString& programFolder) {
    const QStringList needed = kPrograms + QStringList{kReportHost};
    return std::all_of(needed.begin(), needed.end(),
                       [&](const QString& program) { return QFileInfo(programFolder + u'/' + program).isFile(); });
}

QString ReportHostFolder(const QString& root) { return root + u"/host/OFFICE16/"_s; }

QString ReportHostKey() { return u"HKLM\\"_s + kReportHostKey; }

std::optional<QString> RegisteredHostFolder() {
    platform::Registry& registry = *platform::Services().registry;
    platform::RegistryKey key;
    if (registry.OpenKey(platform::MachineRoot(), kReportHostKey, platform::kRegistryRead, key) !=
        platform::kRegistryDone)
        return std::nullopt;
    std::optional<QString> folder = ReadRegistryText(key, u"Path"_s);
    registry.CloseKey(key);
    return folder;
}

bool RegisterReportHost(const QString& root) {
    if (!QFileInfo(HostProgramFile(root)).isFile()) return false;
    platform::Registry& registry = *platform::Services().registry;
    platform::RegistryKey key;
    const QString folder = ReportHostFolder(root);
    long status = registry.CreateKey(platform::MachineRoot(), kReportHostKey, platform::kRegistryAll, key);
    if (status == platform::kRegistryDone)
        status = registry.SetText(key, u"Path"_s, folder, platform::TwoByteLength(folder));
    registry.CloseKey(key);
    if (status != platform::kRegistryDone)
        throw platform::RuntimeError(kWorkFailed, u"帳票ホストを登録できません。（状態 %1）"_s.arg(status));
    return true;
}

}  // namespace setup
