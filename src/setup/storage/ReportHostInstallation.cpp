#include "setup/storage/ReportHostInstallation.h"

#include <QFileInfo>

#include "data/ReportHostTrust.h"
#include "platform/RuntimeError.h"
#include "platform/Services.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

QString HostProgramFile(const QString& root) { return ReportHostFolder(root) + kHostProgramName; }

}  // namespace

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
