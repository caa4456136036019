#include "setup/checks/CheckScope.h"

#include <QFileInfo>

#include "data/Files.h"
#include "database/sqlite/OpenSqlite.h"
#include "platform/RuntimeError.h"
#include "setup/checks/CheckReport.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/schema/Integrity.h"
#include "setup/storage/Installation.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

QString ConfigurationPath(const QString& root) {
    const FilePlaces common = CommonPlaces(root);
    const QString found = ConfigurationFile(common.conf);
    return found.isEmpty() ? common.conf + u'/' + DesktopFileName(u"usrcnfg"_s, FileKind::Accdb) : found;
}

/// Runs a step of reading; a failure leaves what it reads at its default. Returns the reason.
template <typename Step>
QString Try(Step step) {
    try {
        step();
        return {};
    } catch (const platform::RuntimeError& error) {
        return platform::TextForPeople(error);
    }
}

void OpenGeneral(CheckScope& scope) {
    if (!scope.IsServer() && NeedsRecovery(database::SqlitePath(scope.definition->データソース名))) return;
    auto general = std::make_shared<database::Connection>();
    scope.generalError = Try([&] { OpenDefined(*general, *scope.definition, database::ConnectMode::Read); });
    if (scope.generalError.isEmpty()) scope.general = general;
}

QString OtherInstallation(const CheckScope& scope) {
    if (scope.IsServer()) return {};
    const QString folder = QFileInfo(database::SqlitePath(scope.definition->データソース名)).canonicalPath();
    const QString other = QFileInfo(folder).path();
    const bool own = other == QFileInfo(scope.root).canonicalFilePath();
    return !own && QFileInfo(folder).fileName() == u"data"_s && HoldsInstallation(other) ? other : QString();
}

}  // namespace

QString CheckScope::GeneralName() const {
    if (!IsServer()) return u"一般データベース "_s + (definition ? definition->データソース名 : QString());
    return u"一般データベース（サーバー %1）"_s.arg(definition->db == u"S"_s ? definition->サーバー名
                                                                             : definition->データソース名);
}

QString CheckScope::RepairCommand(const QString& options) const {
    return ToolCommand(u"repair"_s, root, IsServer() ? u"--odbc '所有者の接続文字列'"_s + options : options.trimmed());
}

std::optional<QList<QStringList>> CheckScope::Rows(const QString& sql) const {
    if (general == nullptr) return std::nullopt;
    return RowsOf(*general, sql);
}

CheckScope ScopeOf(const QString& root, const QString& user) {
    CheckScope scope{.root = root, .user = UserAccess(user), .configuration = ConfigurationPath(root)};
    if (NeedsRecovery(scope.configuration)) return scope;
    scope.configurationOpens = Try([&] { OpenSuiteFile(scope.configuration, database::ConnectMode::Read); }).isEmpty();
    if (!scope.configurationOpens) return scope;
    Try([&] { scope.definition = FindDefinition(scope.configuration); });
    Try([&] { scope.installKind = InstallKindOf(scope.configuration); });
    if (!scope.definition) return scope;
    OpenGeneral(scope);
    scope.otherInstallation = OtherInstallation(scope);
    return scope;
}

}  // namespace setup
