// Part of Checks.h: the checks of the report host.
#include <QFileInfo>
#include <optional>

#include "data/ReportHostTrust.h"
#include "platform/Services.h"
#include "platform/registry/FileRegistry.h"
#include "setup/checks/Checks.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

bool Holds(const platform::RegistryContent::Key& key, const QString& folder) {
    const auto path = key.values.find(platform::FoldedName(u"Path"_s));
    if (path == key.values.end()) return false;
    const auto* text = std::get_if<QString>(&path->second.data);
    return text != nullptr && text->contains(folder + platform::kPathSeparator, Qt::CaseInsensitive);
}

bool Trusts(const platform::RegistryContent& content, const QString& version, const QString& folder) {
    const QString below = platform::FoldedName(TrustedLocationsKey(version)) + u'\\';
    for (const auto& [name, key] : content.keys)
        if (name.startsWith(below) && Holds(key, folder)) return true;
    return false;
}

/// An unused location key, so that the suggested command does not overwrite an existing location.
QString FreeLocation(const platform::RegistryContent& content, const QString& version) {
    for (int number = 0;; ++number) {
        const QString key = TrustedLocationsKey(version) + u"\\Location%1"_s.arg(number);
        if (content.Find(key) == nullptr) return key;
    }
}

QStringList RegistryFaults(const QString& file, platform::RegistryContent& content) {
    switch (platform::LoadRegistry(file, content)) {
        case platform::kRegistryDone:
            return {};
        case platform::kRegistryDenied:
            return {u"レジストリ %1 を読めません。"_s.arg(file)};
        default:
            return {u"レジストリ %1 が壊れています。"_s.arg(file)};
    }
}

}  // namespace

QStringList HostFaults(const UserAccess& user) {
    const QString registry = platform::MachineRegistryFile();
    if (QFileInfo::exists(registry) && !user.MayRead(registry))
        return {u"レジストリ %1 を読む権限がありません。"_s.arg(registry)};
    platform::RegistryContent content;
    if (const QStringList faults = RegistryFaults(registry, content); !faults.isEmpty()) return faults;
    const std::optional<QString> folder = RegisteredHostFolder();
    if (!folder) return {u"帳票ホストがこのコンピューターに登録されていません。印刷はできません。"_s};
    const QString program = *folder + kReportHostProgram;
    if (!QFileInfo(program).isFile()) return {u"登録されている帳票ホスト %1 がありません。"_s.arg(program)};
    if (!user.MayRun(program)) return {u"帳票ホスト %1 を起動する権限がありません。"_s.arg(program)};
    if (!IsKnownHost(*folder))
        return {u"帳票ホストのフォルダ %1 に版を表す語（OFFICE16 など）がありません。"_s.arg(*folder)};
    return {};
}

QStringList TrustFaults(const UserAccess& user, const QString& reportFolder) {
    const QString version = TrustVersionOf(RegisteredHostFolder().value_or(QString()));
    if (version.isEmpty()) return {};
    platform::RegistryContent content;
    const QStringList faults = RegistryFaults(user.RegistryFile(), content);
    if (!faults.isEmpty() || Trusts(content, version, reportFolder)) return faults;
    return {
        u"帳票ホストがフォルダ %1 を信頼していません。この利用者で次を実行してください。\n"
        u"    suite-setup registry set 'HKCU\\%2' Path '%1/'"_s.arg(reportFolder, FreeLocation(content, version))};
}

}  // namespace setup
