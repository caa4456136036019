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

const QString kNoPrinting = u"印刷とプレビュができません。"_s;

/// True if the registry file was read.
bool ReadRegistry(CheckReport& report, const QString& file, platform::RegistryContent& content) {
    switch (platform::LoadRegistry(file, content)) {
        case platform::kRegistryDone:
            return true;
        case platform::kRegistryDenied:
            report.Add({.what = u"レジストリ %1 を読めません。"_s.arg(file),
                        .effect = kNoPrinting,
                        .remedy = u"このファイルの持ち主と権限を確かめてください。"_s});
            return false;
        default:
            report.Add({.what = u"レジストリ %1 が壊れています。"_s.arg(file),
                        .effect = kNoPrinting,
                        .remedy = u"次でファイルを取り除き、もう一度調べてください。足りない値が示されます。"_s,
                        .commands = {u"mv %1 %2"_s.arg(ShellWord(file), ShellWord(file + u".damaged"_s))}});
            return false;
    }
}

/// Registers the host of this installation, which is copied there first if it is missing.
QStringList RegisterCommands(const QString& root) {
    const QString folder = ReportHostFolder(root);
    QStringList commands;
    if (!QFileInfo(folder + kReportHostProgram).isFile()) commands.append(ToolCommand(u"upgrade"_s, root));
    commands.append(u"suite-setup registry set %1 Path %2"_s.arg(ShellWord(ReportHostKey()), ShellWord(folder)));
    return commands;
}

Finding HostFinding(const CheckScope& scope, const QString& what) {
    return {.what = what,
            .effect = kNoPrinting,
            .remedy = u"次を root が実行してください。"_s,
            .commands = RegisterCommands(scope.root)};
}

}  // namespace

void CheckHost(const CheckScope& scope, CheckReport& report) {
    const QString registry = platform::MachineRegistryFile();
    if (QFileInfo::exists(registry) && !scope.user.MayRead(registry))
        return report.Add({.what = u"レジストリ %1 を読む権限がありません。"_s.arg(registry),
                           .effect = kNoPrinting,
                           .remedy = u"次を root が実行してください。"_s,
                           .commands = {u"chmod 0644 "_s + ShellWord(registry)}});
    platform::RegistryContent content;
    if (!ReadRegistry(report, registry, content)) return;
    const std::optional<QString> folder = RegisteredHostFolder();
    if (!folder) return report.Add(HostFinding(scope, u"帳票ホストがこのコンピューターに登録されていません。"_s));
    const QString program = *folder + kReportHostProgram;
    if (!QFileInfo(program).isFile())
        return report.Add(HostFinding(scope, u"登録されている帳票ホスト %1 がありません。"_s.arg(program)));
    if (!scope.user.MayRun(program))
        return report.Add({.what = u"帳票ホスト %1 を起動する権限がありません。"_s.arg(program),
                           .effect = kNoPrinting,
                           .commands = {u"chmod 0750 "_s + ShellWord(program)}});
    if (!IsKnownHost(*folder))
        report.Add(
            HostFinding(scope, u"帳票ホストのフォルダ %1 に版を表す語（OFFICE16 など）がありません。"_s.arg(*folder)));
}

void CheckTrust(CheckReport& report, const UserAccess& user, const QString& reportFolder) {
    const QString version = TrustVersionOf(RegisteredHostFolder().value_or(QString()));
    if (version.isEmpty()) return;
    platform::RegistryContent content;
    if (!ReadRegistry(report, user.RegistryFile(), content) || Trusts(content, version, reportFolder)) return;
    report.Add({.what = u"帳票ホストがフォルダ %1 を信頼していません。"_s.arg(reportFolder),
                .effect = u"印刷やプレビュのたびに、帳票ファイルを開いてよいか尋ねられます。"_s,
                .remedy = u"次をこの利用者が実行してください。"_s,
                .commands = {u"suite-setup registry set %1 Path %2"_s.arg(
                    ShellWord(u"HKCU\\"_s + FreeLocation(content, version)), ShellWord(reportFolder + u'/'))}});
}

}  // namespace setup
