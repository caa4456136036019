#include "setup/schema/SchemaUpgrade.h"

#include <QSet>

#include "database/LinkedTables.h"
#include "database/sqlite/SqliteQuery.h"
#include "report-host/template/StandardTemplates.h"
#include "setup/schema/TableStatements.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

/// First column of every row in lower case, since SQLite names ignore case.
QSet<QString> LoweredNames(sqlite3* database, const QString& sql) {
    const database::SqliteStatement rows = database::PrepareSql(database, sql);
    QSet<QString> names;
    while (database::NextRow(rows.get())) names.insert(database::ColumnText(rows.get(), 0).toLower());
    return names;
}

QSet<QString> ObjectsOf(sqlite3* database, const QString& type) {
    return LoweredNames(database, u"SELECT name FROM sqlite_master WHERE type = '%1'"_s.arg(type));
}

QStringList AddColumns(sqlite3* database, const TableDefinition& table) {
    const QSet<QString> present = LoweredNames(database, u"SELECT name FROM pragma_table_info('%1')"_s.arg(table.name));
    QStringList added;
    for (const ColumnDefinition& column : table.columns) {
        if (present.contains(column.name.toLower())) continue;
        database::RunSql(database, AddColumnStatement(table, column));
        added.append(u"列 %1.%2"_s.arg(table.name, column.name));
    }
    return added;
}

/// Inserts a row for the report unless the table already has one. True if inserted.
bool AddRow(sqlite3* database, const QString& table, const QStringList& columns, const QStringList& values) {
    const database::SqliteStatement present =
        database::PrepareSql(database, u"SELECT 1 FROM \"%1\" WHERE 名称 = ?"_s.arg(table), {values.first()});
    if (database::NextRow(present.get())) return false;
    const QString places = QStringList(columns.size(), u"?"_s).join(u", "_s);
    const database::SqliteStatement row = database::PrepareSql(
        database, u"INSERT INTO \"%1\" (%2) VALUES (%3)"_s.arg(table, QuotedNames(columns), places), values);
    database::NextRow(row.get());
    return true;
}

}  // namespace

QStringList RenewSchema(sqlite3* database, DatabaseKind store) {
    const QSet<QString> tables = ObjectsOf(database, u"table"_s), indexes = ObjectsOf(database, u"index"_s);
    QStringList added;
    for (const TableDefinition& table : SuiteTables()) {
        if (table.store != store) continue;
        if (tables.contains(table.name.toLower())) {
            added += AddColumns(database, table);
        } else {
            database::RunSql(database, CreateTableStatement(table));
            added.append(u"テーブル "_s + table.name);
        }
        for (int number = 0; number < table.indexes.size(); ++number) {
            if (indexes.contains(IndexName(table, number).toLower())) continue;
            database::RunSql(database, CreateIndexStatement(table, number));
            added.append(u"索引 "_s + IndexName(table, number));
        }
    }
    return added;
}

QStringList AddMissingForms(sqlite3* database, const QString& workTables) {
    QStringList added;
    for (const QString& name : report::StandardFormNames()) {
        const bool form = AddRow(database, u"帳票"_s, {u"名称"_s, u"定義"_s}, {name, report::StandardForm(name)});
        const bool link =
            AddRow(database, u"リンクテーブル"_s, {u"名称"_s, u"元テーブル"_s, u"接続"_s, u"属性"_s},
                   {name, name, database::ConnectTextOf(workTables), QString::number(database::kLinkedTable)});
        if (form) added.append(u"帳票 "_s + name);
        if (link) added.append(u"リンク "_s + name);
    }
    return added;
}

}  // namespace setup
