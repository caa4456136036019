#include "setup/schema/GeneralDatabase.h"

#include <algorithm>

#include "data/Connections.h"
#include "data/ServerSchema.h"
#include "database/sql/Quoting.h"
#include "setup/UsageError.h"
#include "setup/storage/Installation.h"
#include "setup/storage/Installer.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace setup {

void OpenDefined(database::Connection& connection, const GeneralDatabaseDefinition& definition,
                 database::ConnectMode mode) {
    const std::optional<QString> text = GeneralConnectionString(definition);
    if (!text)
        throw database::DatabaseError(database::kProviderNotFound, u"データベースの種類が定義されていません。"_s);
    ApplyConnectionSettings(connection);
    connection.Mode = mode;
    connection.Rules = SuiteTextRules();
    connection.Open(*text);
}

std::optional<GeneralDatabaseDefinition> FindDefinition(const QString& configurationFile) {
    database::Connection connection = OpenSuiteFile(configurationFile, database::ConnectMode::Read);
    database::Recordset row;
    row.Open(u"SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'"_s, connection);
    if (row.AtEOF()) return std::nullopt;
    const auto text = [&](QStringView column) { return row[column].TextOr(u""_s); };
    const auto trimmed = [&](QStringView column) { return TrimBlanks(text(column)); };
    GeneralDatabaseDefinition definition;
    definition.db = text(u"db");
    definition.dbmw = text(u"dbmw");
    definition.データベース名 = trimmed(u"データベース名");
    definition.サーバー名 = trimmed(u"サーバー名");
    definition.ユーザーID = trimmed(u"ユーザーID");
    definition.パスワード = trimmed(u"パスワード");
    definition.プロバイダ名 = trimmed(u"プロバイダ名");
    definition.データソース名 = trimmed(u"データソース名");
    return definition;
}

GeneralDatabaseDefinition ReadDefinition(const QString& configurationFile) {
    if (const std::optional<GeneralDatabaseDefinition> definition = FindDefinition(configurationFile))
        return *definition;
    throw UsageError(u"%1 に一般データベースの定義がありません。"_s.arg(configurationFile));
}

void OpenGeneralFile(database::Connection& connection, const QString& root, database::ConnectMode mode) {
    const QString file = ConfigurationFile(root + u"/conf"_s);
    if (file.isEmpty()) throw UsageError(u"%1 に構成データベースがありません。"_s.arg(root));
    const GeneralDatabaseDefinition definition = ReadDefinition(file);
    if (definition.db != u"A"_s) throw UsageError(u"%1 の一般データベースはファイルではありません。"_s.arg(root));
    OpenDefined(connection, definition, mode);
}

std::optional<QList<QStringList>> RowsOf(database::Connection& connection, const QString& sql) {
    QList<QStringList> texts;
    try {
        database::Recordset rows;
        for (rows.Open(sql, connection); !rows.AtEOF(); rows.MoveNext()) {
            QStringList row;
            for (int column = 0; column < rows.FieldCount(); ++column)
                row.append(rows.FieldAt(column).TextOr(QString()));
            texts.append(row);
        }
    } catch (const database::DatabaseError& error) {
        if (error.Number() != database::kStatementFailure) throw;
        return std::nullopt;
    }
    return texts;
}

bool HasTable(database::Connection& connection, const QString& name) {
    try {
        database::Recordset rows;
        rows.Open(u"SELECT TOP 1 1 AS 有 FROM "_s + name, connection);
        return true;
    } catch (const database::DatabaseError& error) {
        if (error.Number() != database::kStatementFailure) throw;
        return false;
    }
}

QStringList ColumnsOf(database::Connection& connection, const QString& table) {
    QStringList names;
    try {
        database::Recordset rows;
        rows.Open(u"SELECT * FROM %1 WHERE 1 = 0"_s.arg(database::QuotedName(table)), connection);
        for (int column = 0; column < rows.FieldCount(); ++column) names.append(rows.FieldName(column));
    } catch (const database::DatabaseError& error) {
        if (error.Number() != database::kStatementFailure) throw;
    }
    return names;
}

bool HasColumn(const TableDefinition& table, const QString& column) {
    return std::any_of(table.columns.begin(), table.columns.end(), [&](const ColumnDefinition& known) {
        return known.name.compare(column, Qt::CaseInsensitive) == 0;
    });
}

QStringList MissingIn(database::Connection& connection, const QString& engine, DatabaseKind kind) {
    QStringList missing;
    for (const TableDefinition& table : TablesOf(kind)) {
        const QStringList there = ColumnsOf(connection, table.name);
        if (there.isEmpty() && !HasTable(connection, ServerName(engine, table.name))) {
            missing.append(u"表 "_s + table.name);
            continue;
        }
        for (const ColumnDefinition& column : table.columns)
            if (!there.contains(column.name, Qt::CaseInsensitive))
                missing.append(u"表 %1 の列 %2"_s.arg(table.name, column.name));
    }
    return missing;
}

}  // namespace setup
