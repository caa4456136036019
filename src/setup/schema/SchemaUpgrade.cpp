#include "setup/schema/SchemaUpgrade.h"

#include <QSet>

#include "database/LinkedTables.h"
#include "database/sql/Quoting.h"
#include "database/sqlite/SqliteQuery.h"
#include "report-host/template/TemplateFile.h"

using namespace Qt::StringLiterals;
using database::QuotedName;
using database::QuotedNames;

namespace setup {

namespace {

QString ColumnText(const ColumnDefinition& column) { return QuotedName(column.name) + u' ' + column.type; }

/// First column of every row in lower case, since SQLite names ignore case.
QSet<QString> LoweredNames(sqlite3* database, const QString& sql) {
    const database::SqliteStatement rows = database::PrepareSql(database, sql);
    QSet<QString> names;
    while (database::NextRow(rows.get())) names.insert(database::ColumnText(rows.get(), 0).toLower());
    return names;
}

QSet<QString> ObjectsOf(sqlite3* database, const QString& type) {
    return LoweredNames(database, u"SELECT name FROM sqlite_master WHERE type = "_s + database::TextLiteral(type));
}

QStringList AddColumns(sqlite3* database, const TableDefinition& table) {
    const QSet<QString> present =
        LoweredNames(database, u"SELECT name FROM pragma_table_info(%1)"_s.arg(database::TextLiteral(table.name)));
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
    const database::SqliteStatement present = database::PrepareSql(
        database, u"SELECT 1 FROM %1 WHERE 名称 = ?"_s.arg(database::QuotedName(table)), {values.first()});
    if (database::NextRow(present.get())) return false;
    const QString places = QStringList(columns.size(), u"?"_s).join(u", "_s);
    const database::SqliteStatement row = database::PrepareSql(
        database,
        u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(database::QuotedName(table), database::QuotedNames(columns), places),
        values);
    database::NextRow(row.get());
    return true;
}

}  // namespace

QString CreateTableStatement(const TableDefinition& table) {
    QStringList parts;
    for (const ColumnDefinition& column : table.columns) parts.append(ColumnText(column));
    if (!table.key.isEmpty()) parts.append(u"PRIMARY KEY ("_s + QuotedNames(table.key) + u')');
    return u"CREATE TABLE "_s + QuotedName(table.name) + u" ("_s + parts.join(u", "_s) + u')';
}

QString AddColumnStatement(const TableDefinition& table, const ColumnDefinition& column) {
    return u"ALTER TABLE "_s + QuotedName(table.name) + u" ADD COLUMN "_s + ColumnText(column);
}

QString IndexName(const TableDefinition& table, int number) {
    return table.name + u"_索引"_s + QString::number(number + 1);
}

QString CreateIndexStatement(const TableDefinition& table, int number) {
    return u"CREATE INDEX "_s + QuotedName(IndexName(table, number)) + u" ON "_s + QuotedName(table.name) + u" ("_s +
           QuotedNames(table.indexes[number]) + u')';
}

QStringList UpgradeSchema(sqlite3* database, DatabaseKind kind) {
    const QSet<QString> tables = ObjectsOf(database, u"table"_s), indexes = ObjectsOf(database, u"index"_s);
    QStringList added;
    for (const TableDefinition& table : SuiteTables()) {
        if (table.store != kind) continue;
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

QStringList AddMissingTemplates(sqlite3* database, const QString& workTables) {
    QStringList added;
    for (const QString& name : report::StandardTemplateNames()) {
        const bool isNew = AddRow(database, u"帳票"_s, {u"名称"_s, u"定義"_s}, {name, report::StandardTemplate(name)});
        const bool link =
            AddRow(database, u"リンクテーブル"_s, {u"名称"_s, u"元テーブル"_s, u"接続"_s, u"属性"_s},
                   {name, name, database::ConnectTextOf(workTables), QString::number(database::kLinkedTable)});
        if (isNew) added.append(u"帳票 "_s + name);
        if (link) added.append(u"リンク "_s + name);
    }
    return added;
}

}  // namespace setup
