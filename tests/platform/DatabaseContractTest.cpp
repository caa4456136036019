#include <gtest/gtest.h>

#include "platform/Database.h"
#include "platform/DatabaseFile.h"

using namespace Qt::StringLiterals;
using namespace platform;

TEST(Smoke, ReadsRows) {
    const DatabaseFile file;
    file.Run(u"CREATE TABLE M (コード TEXT, 名称 TEXT); INSERT INTO M VALUES ('001','a'),('002',NULL)"_s);
    Connection connection;
    connection.Open(file.ConnectionString());
    EXPECT_EQ(Column(connection, u"SELECT TOP 2 * FROM [M] WHERE コード <> '' ORDER BY コード DESC"_s, u"名称"),
              QStringList({u"(Null)"_s, u"a"_s}));
    EXPECT_EQ(ErrorOf([&] { connection.Execute(u"SELECT 1; SELECT 2"_s); }), u"SQL 文は 1 つだけ指定してください。"_s);
    EXPECT_EQ(ErrorOf([&] { connection.Execute(u"SELECT \"x\" FROM M"_s); }), u"no such column: x"_s);
}
