#include "data/ServerSchema.h"

#include <algorithm>

#include "database/collation/PostgresFunctions.h"

using namespace Qt::StringLiterals;

namespace {

bool IsPostgres(const QString& engine) { return engine.startsWith(u"PostgreSQL"_s); }
bool IsMariaDb(const QString& engine) { return engine.startsWith(u"MariaDB"_s) || engine.startsWith(u"MySQL"_s); }

bool IsIndexed(const TableDefinition& table, const QString& column) {
    return table.key.contains(column) || std::any_of(table.indexes.begin(), table.indexes.end(),
                                                     [&](const QStringList& index) { return index.contains(column); });
}

// The longest index has nine columns, and an index key is limited to 3,072 bytes at four bytes per character.
QString MariaDbType(const TableDefinition& table, const QString& column) {
    return IsIndexed(table, column) ? u"VARCHAR(80)"_s : u"LONGTEXT"_s;
}

QString Type(const QString& engine, const TableDefinition& table, const QString& column) {
    // Explicit, since a column that is added later would get the database's default collation.
    const QString type = IsPostgres(engine)
                             ? u"text COLLATE \"C\""_s
                             : MariaDbType(table, column) + u" CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin"_s;
    return table.key.contains(column) ? type + u" NOT NULL"_s : type;
}

QStringList Names(const QString& engine, const QStringList& columns) {
    QStringList names;
    for (const QString& column : columns) names.append(ServerName(engine, column));
    return names;
}

QString ColumnText(const QString& engine, const TableDefinition& table, const QString& column) {
    return ServerName(engine, column) + u' ' + Type(engine, table, column);
}

QString TableStatement(const QString& engine, const TableDefinition& table) {
    QStringList parts;
    for (const ColumnDefinition& column : table.columns) parts.append(ColumnText(engine, table, column.name));
    if (!table.key.isEmpty()) parts.append(u"PRIMARY KEY ("_s + Names(engine, table.key).join(u", "_s) + u')');
    const QString settings =
        IsPostgres(engine) ? QString() : u" ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_nopad_bin"_s;
    return u"CREATE TABLE "_s + ServerName(engine, table.name) + u" ("_s + parts.join(u", "_s) + u')' + settings;
}

// All orders of the suite put Nulls first; an index with another placement would not be used.
QString IndexStatement(const QString& engine, const QString& table, const QString& name, const QStringList& keys) {
    const QString place = IsPostgres(engine) ? u" NULLS FIRST"_s : QString();
    return u"CREATE INDEX "_s + ServerName(engine, name) + u" ON "_s + ServerName(engine, table) + u" ("_s +
           keys.join(place + u", "_s) + place + u')';
}

// Indexes for the staff lists' orders by name. Computing the sort keys costs far more than the rest of a statement,
// unless they are in an index.
QList<QStringList> TextOrders(const QString& engine, const TableDefinition& table) {
    if (!IsPostgres(engine) || table.name != u"M担当者"_s) return {};
    const auto key = [&](const QString& column) {
        return database::PostgresOrderFunction() + u'(' + ServerName(engine, column) + u')';
    };
    return {{key(u"氏名"_s)}, {key(u"カナ"_s)}, {ServerName(engine, u"郵便番号"_s), key(u"氏名"_s)}};
}

}  // namespace

QString KeptServerName(const QString& engine, const QString& name) {
    QString kept = name;
    if (IsPostgres(engine))
        for (QChar& unit : kept)
            if (unit >= u'A' && unit <= u'Z') unit = QChar(unit.unicode() | 0x20);
    return kept;
}

QString ServerName(const QString& engine, const QString& name) {
    return u'"' + KeptServerName(engine, name).replace(u'"', u"\"\""_s) + u'"';
}

QList<ServerIndex> ServerIndexesOf(const QString& engine, const TableDefinition& table) {
    QList<QStringList> keys;
    for (const QStringList& columns : table.indexes) keys.append(Names(engine, columns));
    keys += TextOrders(engine, table);
    QList<ServerIndex> indexes;
    for (const QStringList& of : keys) {
        const QString name = table.name + u"_索引"_s + QString::number(indexes.size() + 1);
        indexes.append({name, IndexStatement(engine, table.name, name, of)});
    }
    return indexes;
}

QString AddServerColumnStatement(const QString& engine, const TableDefinition& table, const ColumnDefinition& column) {
    return u"ALTER TABLE "_s + ServerName(engine, table.name) + u" ADD COLUMN "_s +
           ColumnText(engine, table, column.name);
}

QList<std::pair<QString, QString>> ServerFunctionsOf(const QString& engine) {
    if (!IsPostgres(engine)) return {};
    const QStringList statements = database::PostgresTextFunctions();
    return {{database::PostgresFoldingFunction(), statements[0]}, {database::PostgresOrderFunction(), statements[1]}};
}

ServerSchema ServerSchemaOf(const QString& engine, const QList<TableDefinition>& tables) {
    if (!IsPostgres(engine) && !IsMariaDb(engine))
        throw database::DatabaseError(
            database::kProviderNotFound,
            u"%1 の表は作れません。PostgreSQL または MariaDB を指定してください。"_s.arg(engine));
    ServerSchema schema;
    for (const auto& [name, statement] : ServerFunctionsOf(engine)) schema.tables.append(statement);
    for (const TableDefinition& table : tables) {
        schema.tables.append(TableStatement(engine, table));
        for (const ServerIndex& index : ServerIndexesOf(engine, table)) schema.indexes.append(index.statement);
    }
    return schema;
}
