#include <gtest/gtest.h>

#include <QStringList>

#include "data/Catalogue.h"
#include "data/ServerSchema.h"
#include "platform/RuntimeError.h"
#include "support/ExpectedText.h"

using namespace Qt::StringLiterals;

namespace {

QString LinesOf(const TableDefinition& table) {
    QStringList columns;
    for (const ColumnDefinition& column : table.columns) columns << column.name + u' ' + column.type;
    QString lines = table.name + u" ("_s + columns.join(u", "_s) + u")\n"_s;
    lines += u"    key ("_s + table.key.join(u", "_s) + u")\n"_s;
    for (const QStringList& index : table.indexes) lines += u"    index ("_s + index.join(u", "_s) + u")\n"_s;
    return lines;
}

/// All statements of the general database but those of the engine's functions, which come first.
QString StatementsOf(const QString& engine) {
    const ServerSchema schema = ServerSchemaOf(engine, TablesOf(DatabaseKind::General));
    const auto functions = ServerFunctionsOf(engine);
    for (qsizetype i = 0; i < functions.size(); ++i) EXPECT_EQ(schema.tables[i], functions[i].second);
    return (schema.tables.mid(functions.size()) + schema.indexes).join(u";\n"_s) + u";\n"_s;
}

}  // namespace

TEST(Schema, HasTheTablesOfEachDatabaseFile) {
    QString lines;
    for (const DatabaseKind store :
         {DatabaseKind::General, DatabaseKind::Configuration, DatabaseKind::Report, DatabaseKind::Forms}) {
        lines += u"# "_s + QString::number(static_cast<int>(store)) + u'\n';
        for (const TableDefinition& table : TablesOf(store)) {
            lines += LinesOf(table);
            EXPECT_EQ(SuiteTable(store, table.name).columns.size(), table.columns.size());
        }
    }
    ExpectText(lines, u"data/schema/catalogue.txt"_s);
}

TEST(Schema, NamesAnUnknownTable) {
    try {
        SuiteTable(DatabaseKind::Report, u"M担当者"_s);
        FAIL();
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.Number(), platform::kItemNotFound);
        EXPECT_EQ(error.Description(), u"テーブル M担当者 は台帳にありません。"_s);
    }
}

TEST(Schema, StatementsForPostgreSql) { ExpectText(StatementsOf(u"PostgreSQL"_s), u"data/schema/PostgreSQL.sql"_s); }

TEST(Schema, StatementsForMariaDb) { ExpectText(StatementsOf(u"MariaDB"_s), u"data/schema/MariaDB.sql"_s); }

TEST(Schema, OfMySqlIsThatOfMariaDb) { EXPECT_EQ(StatementsOf(u"MySQL"_s), StatementsOf(u"MariaDB"_s)); }

TEST(Schema, OnlyPostgreSqlHasFunctions) {
    QStringList names;
    for (const auto& [name, statement] : ServerFunctionsOf(u"PostgreSQL"_s)) {
        names << name;
        EXPECT_TRUE(statement.startsWith(u"CREATE OR REPLACE FUNCTION "_s + name + u'(')) << statement.toStdString();
    }
    EXPECT_EQ(names, (QStringList{u"suite_fold"_s, u"suite_order"_s}));
    EXPECT_TRUE(ServerFunctionsOf(u"MariaDB"_s).isEmpty());
}

TEST(Schema, RefusesAnotherEngine) {
    try {
        ServerSchemaOf(u"Oracle"_s, {});
        FAIL();
    } catch (const database::DatabaseError& error) {
        EXPECT_EQ(error.Number(), database::kProviderNotFound);
        EXPECT_EQ(error.Description(), u"Oracle の表は作れません。PostgreSQL または MariaDB を指定してください。"_s);
    }
}

TEST(Schema, PostgreSqlKeepsNamesInLowerCaseLetters) {
    EXPECT_EQ(KeptServerName(u"PostgreSQL"_s, u"@AZ[az住所Ａ\""_s), u"@az[az住所Ａ\""_s);
    EXPECT_EQ(ServerName(u"PostgreSQL"_s, u"住所A\""_s), u"\"住所a\"\"\""_s);
    EXPECT_EQ(ServerName(u"MariaDB"_s, u"住所A\""_s), u"\"住所A\"\"\""_s);
}

TEST(Schema, AColumnIsAddedWithItsType) {
    const TableDefinition& staff = SuiteTable(DatabaseKind::General, u"M担当者"_s);
    EXPECT_EQ(AddServerColumnStatement(u"PostgreSQL"_s, staff, {u"EMAIL"_s, u"TEXT"_s}),
              u"ALTER TABLE \"m担当者\" ADD COLUMN \"email\" text COLLATE \"C\""_s);
    EXPECT_EQ(
        AddServerColumnStatement(u"MariaDB"_s, staff, {u"EMAIL"_s, u"TEXT"_s}),
        u"ALTER TABLE \"M担当者\" ADD COLUMN \"EMAIL\" LONGTEXT CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin"_s);
}
