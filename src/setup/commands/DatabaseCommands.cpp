// Part of Verbs.h: the verbs `import`, `server-init` and `use-server`, and DefinitionFrom.
#include "setup/commands/Verbs.h"

#include <QScopeGuard>

#include "data/Connections.h"
#include "data/ServerSchema.h"
#include "database/DatabaseSession.h"
#include "database/sql/Quoting.h"
#include "setup/UsageError.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/schema/SchemaUpgrade.h"
#include "setup/schema/TableCopy.h"
#include "setup/storage/Installation.h"
#include "setup/storage/Installer.h"
#include "setup/storage/JetReader.h"
#include "setup/storage/PinSealing.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

/// One DROP per table, so that a missing table does not prevent dropping the others.
void DropTables(database::Connection& server, const QString& engine, const QList<TableDefinition>& tables) {
    for (const TableDefinition& table : tables) {
        try {
            server.Execute(u"DROP TABLE "_s + ServerName(engine, table.name));
        } catch (const database::DatabaseError&) {
            // The failure came before this table was created.
        }
    }
}

void RefuseExisting(database::Connection& server, const QString& engine, const QList<TableDefinition>& tables) {
    for (const TableDefinition& table : tables)
        if (HasTable(server, ServerName(engine, table.name)))
            throw UsageError(u"サーバーに表 %1 が既にあります。空のデータベースを指定してください。"_s.arg(table.name));
}

/// Includes columns that a site has added.
QList<TableDefinition> TablesToMake(database::Connection* source) {
    QList<TableDefinition> tables = TablesOf(DatabaseKind::General);
    if (source == nullptr) return tables;
    for (TableDefinition& table : tables)
        for (const QString& column : ColumnsOf(*source, table.name))
            if (!HasColumn(table, column)) table.columns.append({column, u"TEXT"_s});
    return tables;
}

void MakeTables(database::Connection& server, const QString& engine, database::Connection* source,
                const QList<TableDefinition>& tables, const Console& console) {
    const ServerSchema schema = ServerSchemaOf(engine, tables);
    for (const QString& statement : schema.tables) server.Execute(statement);
    if (source != nullptr)
        for (const TableDefinition& table : tables) CopyTable(*source, server, table, console.out);
    for (const QString& statement : schema.indexes) server.Execute(statement);
    if (engine.startsWith(u"PostgreSQL"_s)) server.Execute(u"ANALYZE"_s);
}

void WriteDefinition(const QString& file, const GeneralDatabaseDefinition& definition) {
    using database::TextLiteral;
    database::Connection connection = OpenSuiteFile(file, database::ConnectMode::ReadWrite);
    database::Transaction whole(connection);
    connection.Execute(
        u"UPDATE データベース定義 SET db = %1, dbmw = %2, プロバイダ名 = %3, データソース名 = %4,"
        u" サーバー名 = %5, データベース名 = %6, ユーザーID = %7, パスワード = %8"
        u" WHERE 情報種類 = 'GNR'"_s.arg(TextLiteral(definition.db), TextLiteral(definition.dbmw),
                                         TextLiteral(definition.プロバイダ名), TextLiteral(definition.データソース名),
                                         TextLiteral(definition.サーバー名), TextLiteral(definition.データベース名),
                                         TextLiteral(definition.ユーザーID), TextLiteral(definition.パスワード)));
    whole.Commit();
}

void AddMissing(const Arguments& arguments, const Console& console) {
    if (arguments.Has(option::kFrom)) throw UsageError(u"--from と --add-missing は一緒に指定できません。"_s);
    database::Connection server;
    OpenDefined(server, DefinitionFrom(arguments), database::ConnectMode::ReadWrite);
    const QStringList done = UpgradeServerSchema(server);
    for (const QString& line : done) console.out << line << u'\n';
    if (done.isEmpty()) console.out << u"サーバーの一般データベースに足りないものはありません。\n"_s;
}

/// Throws platform::RuntimeError if the programs could not read the database, or would get wrong search results.
void CheckServer(database::Connection& server) {
    const QStringList missing = MissingIn(server, server.Session().EngineName());
    if (!missing.isEmpty())
        throw platform::RuntimeError(
            1, u"サーバーに足りないものがあります。%1。server-init で作るか、管理者に追加を依頼してください。"_s.arg(
                   missing.join(u'、')));
    QStringList faults;
    for (const ServerTextFault& fault : FindServerTextFaults(server))
        faults.append(u"%1。次を実行してください。\n    %2"_s.arg(fault.what, fault.remedy));
    if (!faults.isEmpty())
        throw platform::RuntimeError(1, u"サーバーでは検索が正しく動きません。"_s + faults.join(u'\n'));
}

}  // namespace

GeneralDatabaseDefinition DefinitionFrom(const Arguments& arguments) {
    const QString text = arguments.Value(option::kOdbc);
    if (text.isEmpty()) throw UsageError(u"--odbc に接続文字列を指定してください。"_s);
    return DefinitionOf(text);
}

void InitServer(const Arguments& arguments, const Console& console) {
    if (arguments.Has(option::kAddMissing)) return AddMissing(arguments, console);
    const GeneralDatabaseDefinition definition = DefinitionFrom(arguments);
    std::optional<database::Connection> source;
    if (arguments.Has(option::kFrom)) {
        source.emplace();
        OpenGeneralFile(*source, InstallationRoot(arguments.Value(option::kFrom)), database::ConnectMode::Read);
    }
    database::Connection server;
    OpenDefined(server, definition, database::ConnectMode::ReadWrite);
    const QString engine = server.Session().EngineName();
    const QList<TableDefinition> tables = TablesToMake(source ? &*source : nullptr);
    RefuseExisting(server, engine, tables);
    auto takeBack = qScopeGuard([&] { DropTables(server, engine, tables); });
    MakeTables(server, engine, source ? &*source : nullptr, tables, console);
    takeBack.dismiss();
    console.out << u"%1 に表 %2 個を作りました。\n"_s.arg(engine).arg(tables.size());
}

void ImportGeneral(const Arguments& arguments, const Console& console) {
    const QString path = arguments.Operand(1);
    const QString root = InstallationRoot(arguments.Installation());
    // Must be created before the database is opened: the reader process must not inherit its file descriptors.
    const JetReader reader(path, console.programFolder + u"/suite-setup"_s);
    database::Connection general;
    OpenGeneralFile(general, root, database::ConnectMode::ReadWrite);
    ImportTables(reader, path, general, console.out);
}

void UseServer(const Arguments& arguments, const Console& console) {
    const QString root = InstallationRoot(arguments.Installation());
    const GeneralDatabaseDefinition definition = DefinitionFrom(arguments);
    const QString file = ConfigurationFile(root + u"/conf"_s);
    if (file.isEmpty()) throw UsageError(u"%1 に構成データベースがありません。"_s.arg(root));
    database::Connection server;
    OpenDefined(server, definition, database::ConnectMode::Read);
    CheckServer(server);
    WriteDefinition(file, definition);
    console.out << u"%1 の一般データベースを %2 のものにしました。動いているプログラムは起動し直してください。\n"_s.arg(
        root, server.Session().EngineName());
    const QString pins = ClearPinsFault(root, server, DatabasePlace::Server);
    if (!pins.isEmpty()) console.out << pins << u'\n';
}

}  // namespace setup
