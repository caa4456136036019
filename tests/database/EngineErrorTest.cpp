#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "database/Database.h"
#include "database/DatabaseFile.h"

using namespace Qt::StringLiterals;
using namespace database;
using namespace platform;

namespace {

/// The text for the user and the text for the run history of a statement's error.
QStringList TextsOf(Connection& connection, const QString& sql) {
    try {
        connection.Execute(sql);
    } catch (const DatabaseError& error) {
        return {TextForPeople(error), error.Description()};
    }
    return {};
}

}  // namespace

TEST(EngineError, PeopleAreShownJapaneseWithTheEnginesWordsInBrackets) {
    const DatabaseFile file;
    file.Run(u"CREATE TABLE 鍵 (a TEXT PRIMARY KEY); INSERT INTO 鍵 VALUES ('1')"_s);
    Connection connection;
    connection.CommandTimeout = 1;
    connection.Open(file.ConnectionString());
    EXPECT_EQ(TextsOf(connection, u"INSERT INTO 無い VALUES ('1')"_s),
              QStringList({u"SQL 文を実行できません。（no such table: 無い）"_s, u"no such table: 無い"_s}));
    EXPECT_EQ(TextsOf(connection, u"INSERT INTO 鍵 VALUES ('1')"_s),
              QStringList({u"データベースの規則に反する値です。（UNIQUE constraint failed: 鍵.a）"_s,
                           u"UNIQUE constraint failed: 鍵.a"_s}));
    const OtherProgram other(file.Path());
    ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
    EXPECT_EQ(
        TextsOf(connection, u"INSERT INTO 鍵 VALUES ('2')"_s),
        QStringList({u"データベースは他のプログラムが使用中です。（database is locked）"_s, u"database is locked"_s}));
}

TEST(EngineError, FailuresOfTheSuiteComeAsTheyAre) {
    EXPECT_EQ(TextForPeople(RuntimeError(53, u"ファイルがありません。"_s)), u"ファイルがありません。"_s);
    EXPECT_EQ(TextForPeople(DatabaseError(kObjectClosed, u"接続が開いていません。"_s)), u"接続が開いていません。"_s);
}

TEST(EngineError, FailuresOfTheRunTimeLibraryAreExplained) {
    EXPECT_EQ(TextForPeople(std::bad_alloc()), u"メモリーが足りません。（std::bad_alloc）"_s);
    EXPECT_EQ(TextForPeople(std::runtime_error("x")), u"予期しない問題が発生しました。（x）"_s);
}
