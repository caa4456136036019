// Part of Verbs.h: the verb `upgrade`, and EnterInMenu.
#include "setup/commands/Verbs.h"

#include <QFile>
#include <QFileInfo>
#include <functional>

#include "database/sqlite/SqliteQuery.h"
#include "platform/RuntimeError.h"
#include "setup/UsageError.h"
#include "setup/sample/Sample.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/schema/SchemaUpgrade.h"
#include "setup/storage/Installation.h"
#include "setup/storage/InstallationRights.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

/// State and output of one upgrade.
struct Upgrade {
    QString root;
    const Console& console;
    bool changed = false;
    QStringList refused{};  ///< entries of other owners, whose rights could not be corrected

    void Report(const QString& line) {
        changed = true;
        console.out << line << u'\n';
    }
};

using FileUpgrade = std::function<QStringList(sqlite3*)>;

/// Runs the schema upgrade in one transaction, so that a failure leaves the file unchanged.
void UpgradeFile(Upgrade& upgrade, const QString& file, const FileUpgrade& change) {
    try {
        const database::SqliteDatabase database = database::OpenSqliteFile(file, database::ConnectMode::ReadWrite);
        database::RunSql(database.get(), u"BEGIN IMMEDIATE"_s);
        const QStringList added = change(database.get());
        database::RunSql(database.get(), u"COMMIT"_s);
        for (const QString& line : added) upgrade.Report(u"%1: %2 を追加しました。"_s.arg(file, line));
    } catch (const database::DatabaseError& error) {
        throw platform::RuntimeError(kWorkFailed,
                                     u"%1 を更新できません。%2"_s.arg(file, platform::TextForPeople(error)));
    }
}

FileUpgrade SchemaUpgrade(DatabaseKind kind) {
    return [kind](sqlite3* database) { return UpgradeSchema(database, kind); };
}

void UpgradePlaces(Upgrade& upgrade, const FilePlaces& places) {
    if (const QString file = ConfigurationFile(places.conf); !file.isEmpty())
        UpgradeFile(upgrade, file, SchemaUpgrade(DatabaseKind::Configuration));
    const QString workTables = WorkTablesIn(places.report);
    if (QFileInfo(workTables).isFile()) UpgradeFile(upgrade, workTables, SchemaUpgrade(DatabaseKind::Report));
    for (const QString& file : TemplateFilesIn(places.report))
        UpgradeFile(upgrade, file, [&](sqlite3* database) {
            return UpgradeSchema(database, DatabaseKind::Forms) + AddMissingTemplates(database, workTables);
        });
}

/// Altering tables needs their owner, which is rarely the account that the programs use.
void UpgradeGeneralOnServer(Upgrade& upgrade, const GeneralDatabaseDefinition& owner, const QString& configuration) {
    try {
        database::Connection server;
        OpenDefined(server, owner, database::ConnectMode::ReadWrite);
        for (const QString& line : UpgradeServerSchema(server)) upgrade.Report(u"サーバー: %1"_s.arg(line));
    } catch (const database::DatabaseError& error) {
        throw platform::RuntimeError(
            kWorkFailed, u"サーバーの一般データベースを更新できません。%1"_s.arg(platform::TextForPeople(error)));
    }
    CheckSeenByPrograms(ReadDefinition(configuration));
}

/// Upgrades the general database of the definition row.
void UpgradeGeneral(Upgrade& upgrade, const QString& configuration, const Arguments& arguments) {
    const std::optional<GeneralDatabaseDefinition> definition = FindDefinition(configuration);
    if (!definition) return;
    const bool file = definition->db == u"A"_s, asked = arguments.Has(option::kOdbc);
    if (file && asked) throw UsageError(u"一般データベースはファイルです。--odbc は付けられません。"_s);
    if (file)
        return UpgradeFile(upgrade, database::SqlitePath(definition->データソース名),
                           SchemaUpgrade(DatabaseKind::General));
    if (asked) return UpgradeGeneralOnServer(upgrade, DefinitionFrom(arguments), configuration);
    upgrade.console.out << u"一般データベースはサーバーにあるので、そのままです。"_s
                        << u"--odbc に所有者の接続文字列を付けると、足りない表や列を加えます。\n"_s;
}

void UpgradePrograms(Upgrade& upgrade) {
    for (const QString& file : InstallPrograms(upgrade.console.programFolder, upgrade.root))
        upgrade.Report(u"%1 を新しくしました。"_s.arg(file));
}

/// A changed manual may be the site's and is not overwritten.
void UpgradeManual(Upgrade& upgrade) {
    const QString manual = upgrade.root + u"/manual/要員名簿照会.doc"_s;
    QFile present(manual);
    if (!present.exists()) {
        WriteManual(manual);
        return upgrade.Report(u"%1 を作りました。"_s.arg(manual));
    }
    if (!present.open(QIODevice::ReadOnly) || present.readAll() == ManualDocument()) return;
    const QString beside = manual + u".new"_s;
    WriteManual(beside);
    upgrade.console.out << u"%1 は変更されているので、新しい版を %2 に置きました。\n"_s.arg(manual, beside);
}

/// Earlier versions made installations readable for every user of the machine and left them in the creator's group.
void CorrectAllRights(Upgrade& upgrade) {
    const RightsChanges changes = CorrectRights(upgrade.root);
    for (const QString& line : changes.done) upgrade.Report(u"権限を直しました。"_s + line);
    upgrade.refused = changes.refused;
}

void CheckUpgrade(const QString& root, const QString& programFolder) {
    if (ConfigurationFile(root + u"/conf"_s).isEmpty())
        throw UsageError(u"%1 に構成データベースがありません。"_s.arg(root));
    // The programs of the installation itself can't upgrade it.
    if (QFileInfo(programFolder).canonicalFilePath() == QFileInfo(root + u"/prgbin"_s).canonicalFilePath())
        throw UsageError(u"新しい版の suite-setup で実行してください。これはこのインストール自身のものです。"_s);
    if (!HoldsPrograms(programFolder))
        throw UsageError(u"%1 に新しいプログラムが揃っていません。"_s.arg(programFolder));
}

}  // namespace

void EnterInMenu(const QString& root, const Console& console) {
    console.out << u"%1 をメニューに登録しました。\n"_s.arg(WriteMenuEntry(root));
}

void UpgradeInstallation(const Arguments& arguments, const Console& console) {
    Upgrade upgrade{.root = InstallationRoot(arguments.Installation()), .console = console};
    CheckUpgrade(upgrade.root, console.programFolder);
    const FilePlaces common = CommonPlaces(upgrade.root);
    const QList<FilePlaces> privatePlaces = AllPrivatePlacesToChange(upgrade.root);
    // Tables first: old programs work with new columns, new programs fail without them.
    UpgradeGeneral(upgrade, ConfigurationFile(common.conf), arguments);
    CorrectAllRights(upgrade);
    UpgradePlaces(upgrade, common);
    for (const FilePlaces& places : privatePlaces) UpgradePlaces(upgrade, places);
    UpgradePrograms(upgrade);
    UpgradeManual(upgrade);
    CorrectRights(upgrade.root);  // of the files added since CorrectAllRights
    if (arguments.Has(option::kMenu)) EnterInMenu(upgrade.root, console);
    if (!upgrade.refused.isEmpty())
        throw platform::RuntimeError(
            kWorkFailed, u"権限を直せません。所有者か root で実行してください。\n"_s + upgrade.refused.join(u'\n'));
    if (!upgrade.changed) console.out << u"このインストールは新しい版になっています。\n"_s;
}

}  // namespace setup
