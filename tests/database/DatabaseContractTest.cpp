// Contract of database/Database.h that every engine must satisfy.

#include <gtest/gtest.h>

#include "database/Database.h"
#include "database/DatabaseFile.h"
#include "database/TestEngine.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

class DatabaseContract : public testing::TestWithParam<EngineKind> {
  protected:
    void SetUp() override {
        engine = GetParam().make();
        engine->Run(
            u"CREATE TABLE M担当者 (コード VARCHAR(20), 氏名 VARCHAR(200), カナ VARCHAR(200), 部門コード VARCHAR(20),"
            u" ログインID VARCHAR(20), メモ TEXT);"
            u"CREATE TABLE M部門 (コード VARCHAR(20), 名称 VARCHAR(200));"
            u"INSERT INTO M部門 VALUES ('010', '総務部'), ('020', '営業部');"
            u"INSERT INTO M担当者 VALUES ('00001', '山田 太郎', 'ﾔﾏﾀﾞ ﾀﾛｳ', '010', 'Yamada', ''),"
            u" ('00002', '佐藤 花子', 'ｻﾄｳ ﾊﾅｺ', '020', 'sato', NULL),"
            u" ('00003', '𠮷田 一', 'ﾖｼﾀﾞ ﾊｼﾞﾒ', '099', NULL, 'it''s'),"
            u" ('00004', '鈴木Ａ', 'ｽｽﾞｷ', NULL, NULL, '100% [ab]')"_s);
        Open(connection, ConnectMode::ReadWrite);
    }

    void Open(Connection& target, ConnectMode mode) const {
        target.Mode = mode;
        target.CommandTimeout = 1;
        target.CursorLocation = CursorLocation::Client;
        target.Rules = {{u"氏名"_s, u"カナ"_s}, {u"ログインID"_s}};
        target.Open(engine->ConnectionString());
    }

    QStringList Codes(const QString& behindFrom) {
        return Column(connection, u"SELECT M担当者.コード FROM M担当者 "_s + behindFrom, u"コード");
    }

    QString Names(const QString& from) {
        const QString sql =
            u"SELECT M担当者.コード, M部門.名称 AS 部門名 FROM "_s + from + u" ORDER BY M担当者.コード"_s;
        return Column(connection, sql, u"コード").join(u',') + u' ' + Column(connection, sql, u"部門名").join(u',');
    }

    std::unique_ptr<TestEngine> engine;
    Connection connection;
};

}  // namespace

TEST_P(DatabaseContract, RowsAreReadForwardToTheEnd) {
    Recordset rows;
    rows.Open(u"SELECT コード, 氏名 FROM M担当者 WHERE コード <= '00002' ORDER BY コード"_s, connection);
    EXPECT_FALSE(rows.AtBOF());
    EXPECT_FALSE(rows.AtEOF());
    EXPECT_EQ(rows[u"コード"].Text(), u"00001"_s);
    EXPECT_EQ(rows[u"氏名"].Text(), u"山田 太郎"_s);
    rows.MoveNext();
    EXPECT_EQ(rows[u"コード"].Text(), u"00002"_s);
    rows.MoveNext();
    EXPECT_TRUE(rows.AtEOF());
}

TEST_P(DatabaseContract, AResultWithoutRowsStandsAtBothEnds) {
    Recordset rows;
    rows.Open(u"SELECT コード FROM M担当者 WHERE コード = 'x'"_s, connection);
    EXPECT_TRUE(rows.AtBOF());
    EXPECT_TRUE(rows.AtEOF());
    EXPECT_EQ(NumberOf([&] { rows.MoveNext(); }), kNoCurrentRecord);
    EXPECT_EQ(NumberOf([&] { rows[u"コード"].IsNull(); }), kNoCurrentRecord);
}

TEST_P(DatabaseContract, NullIsNotEmptyText) {
    Recordset rows;
    rows.Open(u"SELECT メモ FROM M担当者 WHERE コード <= '00002' ORDER BY コード"_s, connection);
    EXPECT_FALSE(rows[u"メモ"].IsNull());
    EXPECT_EQ(rows[u"メモ"].Text(), u""_s);
    rows.MoveNext();
    EXPECT_TRUE(rows[u"メモ"].IsNull());
    EXPECT_EQ(rows[u"メモ"].TextOr(u"-"_s), u"-"_s);
    try {
        rows[u"メモ"].Text();
        FAIL() << "the Null gave a text";
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.Number(), platform::kInvalidUseOfNull);
    }
}

TEST_P(DatabaseContract, FieldsAreFoundWithoutRegardToCase) {
    Recordset rows;
    rows.Open(u"SELECT ログインID, コード AS CodeＡ FROM M担当者 ORDER BY コード"_s, connection);
    EXPECT_EQ(rows[u"ログインid"].Text(), u"Yamada"_s);
    EXPECT_EQ(rows[u"cODEａ"].Text(), u"00001"_s);
    EXPECT_EQ(NumberOf([&] { rows[u"氏名"].IsNull(); }), platform::kItemNotFound);
}

TEST_P(DatabaseContract, OfEqualNamesTheFirstCounts) {
    Recordset rows;
    rows.Open(
        u"SELECT M担当者.コード, M部門.コード FROM M担当者 INNER JOIN M部門 ON M部門.コード = M担当者.部門コード"
        u" ORDER BY M担当者.コード"_s,
        connection);
    EXPECT_EQ(rows[u"コード"].Text(), u"00001"_s);
}

TEST_P(DatabaseContract, DeclaredTypesStandInCapitals) {
    engine->Run(u"CREATE TABLE 金額表 (額 "_s + engine->MoneyType().toLower() +
                u", 名 VARCHAR(20)); INSERT INTO 金額表 VALUES (5, 'a')"_s);
    Recordset rows;
    rows.Open(u"SELECT 額, 名 FROM 金額表"_s, connection);
    EXPECT_EQ(rows[u"額"].DeclaredType(), engine->MoneyType());
    EXPECT_EQ(rows[u"名"].DeclaredType(), u"VARCHAR(20)"_s);
}

TEST_P(DatabaseContract, NumbersReadAsPlainText) {
    engine->Run(u"CREATE TABLE 数 (整 INTEGER, 実 DOUBLE PRECISION); INSERT INTO 数 VALUES (-12, 5.0), (0, 2.25)"_s);
    EXPECT_EQ(Column(connection, u"SELECT 整 FROM 数 ORDER BY 整"_s, u"整"), QStringList({u"-12"_s, u"0"_s}));
    EXPECT_EQ(Column(connection, u"SELECT 実 FROM 数 ORDER BY 実"_s, u"実"), QStringList({u"2.25"_s, u"5"_s}));
    EXPECT_EQ(Column(connection, u"SELECT COUNT(*) AS 件数 FROM M担当者"_s, u"件数"), QStringList({u"4"_s}));
}

TEST_P(DatabaseContract, CloseOfWhatIsNotOpenRaises) {
    Recordset rows;
    EXPECT_EQ(NumberOf([&] { rows.Close(); }), kObjectClosed);
    EXPECT_NE(NumberOf([&] { rows.Open(u"SELECT x FROM 無い表"_s, connection); }), 0);
    EXPECT_FALSE(rows.IsOpen());
    EXPECT_EQ(NumberOf([&] { rows.Close(); }), kObjectClosed);
    EXPECT_EQ(NumberOf([&] { rows.AtEOF(); }), kObjectClosed);
    rows.Open(u"SELECT コード FROM M担当者 WHERE コード = 'x'"_s, connection);
    EXPECT_TRUE(rows.IsOpen());
    rows.Close();
    EXPECT_EQ(NumberOf([&] { rows.Close(); }), kObjectClosed);
}

TEST_P(DatabaseContract, AConnectionThatIsNotOpenRefusesStatements) {
    Connection closed;
    Recordset rows;
    EXPECT_EQ(NumberOf([&] { closed.Execute(u"DELETE FROM M部門"_s); }), kObjectClosed);
    EXPECT_EQ(NumberOf([&] { rows.Open(u"SELECT コード FROM M部門"_s, closed); }), kObjectClosed);
    closed.Close();
    EXPECT_FALSE(closed.IsOpen());
    const ReadScope scope(closed);
    EXPECT_FALSE(rows.IsOpen());
}

TEST_P(DatabaseContract, RowsOutliveTheirConnection) {
    Recordset rows;
    rows.Open(u"SELECT コード FROM M担当者 ORDER BY コード"_s, connection);
    connection.Close();
    rows.MoveNext();
    EXPECT_EQ(rows[u"コード"].Text(), u"00002"_s);
}

TEST_P(DatabaseContract, WrongStatementsAreFailuresOfTheStatement) {
    for (const QString& sql :
         {u"SELECT コード FROM M担当者 WHERE コード <> ''M担当者.電話 LIKE '%1%'"_s, u"SELECT 無い列 FROM M担当者"_s,
          u"SELECT \"無い列\" FROM M担当者"_s, u"SELECT コード FROM M担当者 WHERE 氏名 = 'it's'"_s,
          u"SELECT コード FROM M担当者 WHERE 氏名 = 'x"_s, u"SELECT [コード FROM M担当者"_s,
          u"SELECT コード FROM M担当者 WHERE 氏名 LIKE '%[ab%'"_s, u"SELECT コード FROM M担当者 WHERE コード = ?"_s,
          u""_s, u"  "_s, u";"_s, u"-- x"_s, u"SELECT 1 AS a; SELECT 2 AS b"_s, u"SELECT 1 AS a; DELETE FROM M担当者"_s,
          u"SELECT 1 AS a"_s + QChar(u'\0') + u"; DELETE FROM M担当者"_s}) {
        Recordset rows;
        EXPECT_EQ(NumberOf([&] { rows.Open(sql, connection); }), kStatementFailure) << sql.toStdString();
        EXPECT_EQ(NumberOf([&] { connection.Execute(sql); }), kStatementFailure) << sql.toStdString();
    }
    EXPECT_EQ(Codes(u""_s).size(), 4);
}

TEST_P(DatabaseContract, OneSemicolonBehindAStatementIsAllowed) {
    EXPECT_EQ(Column(connection, u"SELECT TOP 1 コード FROM M担当者 ORDER BY コード ; "_s, u"コード"),
              QStringList({u"00001"_s}));
}

TEST_P(DatabaseContract, TextsComeBackAsTheyWereWritten) {
    const QString longText = u"漢字𠮷ｶﾅ'\"%_[]\\\n"_s.repeated(20000);
    connection.Execute(u"UPDATE M担当者 SET メモ = '"_s + QString(longText).replace(u"'"_s, u"''"_s) +
                       u"' WHERE コード = '00001'"_s);
    EXPECT_TRUE(Column(connection, u"SELECT メモ FROM M担当者 WHERE コード = '00001'"_s, u"メモ").first() == longText);
    EXPECT_EQ(Codes(u"WHERE 氏名 = '𠮷田 一'"_s), QStringList({u"00003"_s}));
    EXPECT_EQ(Codes(u"WHERE メモ = 'it''s'"_s), QStringList({u"00003"_s}));
}

TEST_P(DatabaseContract, AZeroWidthNoBreakSpaceIsACharacterOfATextAndOfAPattern) {
    connection.Execute(u"UPDATE M担当者 SET 氏名 = '\uFEFF\uFEFF山', メモ = '\uFEFF' WHERE コード = '00002'"_s);
    const QString row = u"SELECT 氏名, メモ FROM M担当者 WHERE コード = '00002'"_s;
    EXPECT_EQ(Column(connection, row, u"氏名"), QStringList({u"\uFEFF\uFEFF山"_s}));
    EXPECT_EQ(Column(connection, row, u"メモ"), QStringList({u"\uFEFF"_s}));
    for (const QString& pattern : {u"%\uFEFF%"_s, u"\uFEFF%"_s, u"%[\uFEFF]%"_s, u"\uFEFF_山"_s})
        EXPECT_EQ(Codes(u"WHERE 氏名 LIKE '"_s + pattern + u"'"_s), QStringList({u"00002"_s})) << pattern.toStdString();
    EXPECT_EQ(Codes(u"WHERE 氏名 = '\uFEFF\uFEFF山'"_s), QStringList({u"00002"_s}));
    EXPECT_EQ(Codes(u"WHERE 氏名 = '山'"_s), QStringList());
}

TEST_P(DatabaseContract, ManyRowsComeWholeAndInOrder) {
    QStringList expected;
    for (int i = 0; i < 2000; ++i) expected.append(u"%1"_s.arg(i, 5, 10, QChar(u'0')));
    connection.Execute(u"DELETE FROM M部門"_s);
    for (qsizetype i = 0; i < expected.size(); i += 500)
        connection.Execute(u"INSERT INTO M部門 (コード, 名称) VALUES ('"_s +
                           expected.mid(i, 500).join(u"', '名'), ('"_s) + u"', '名')"_s);
    EXPECT_EQ(Column(connection, u"SELECT コード, 名称 FROM M部門 ORDER BY コード"_s, u"コード"), expected);
    EXPECT_EQ(Column(connection, u"SELECT 名称 FROM M部門 ORDER BY コード"_s, u"名称"),
              QStringList(expected.size(), u"名"_s));
}

TEST_P(DatabaseContract, WritesAreThereForOthersAtOnce) {
    connection.Execute(u"INSERT INTO M部門 (コード, 名称) VALUES ('030', '開発''部')"_s);
    Connection other;
    Open(other, ConnectMode::Read);
    EXPECT_EQ(Column(other, u"SELECT 名称 FROM M部門 WHERE コード = '030'"_s, u"名称"), QStringList({u"開発'部"_s}));
}

TEST_P(DatabaseContract, AReadingConnectionCannotWrite) {
    Connection reader;
    Open(reader, ConnectMode::Read);
    for (const QString& sql : {u"DELETE FROM M部門"_s, u"INSERT INTO M部門 VALUES ('1', '2')"_s,
                               u"UPDATE M部門 SET 名称 = ''"_s, u"CREATE TABLE 新 (a TEXT)"_s, u"DROP TABLE M部門"_s})
        EXPECT_EQ(NumberOf([&] { reader.Execute(sql); }), kPermissionDenied) << sql.toStdString();
    EXPECT_EQ(Column(reader, u"SELECT コード FROM M部門 ORDER BY コード"_s, u"コード"),
              QStringList({u"010"_s, u"020"_s}));
}

TEST_P(DatabaseContract, AnOpenRecordsetLocksNoWriterOut) {
    Recordset rows;
    rows.Open(u"SELECT コード FROM M担当者 ORDER BY コード"_s, connection);
    EXPECT_TRUE(engine->TryOutside(u"DELETE FROM M担当者 WHERE コード = '00002'"_s));
    rows.MoveNext();
    EXPECT_EQ(rows[u"コード"].Text(), u"00002"_s);
    EXPECT_EQ(Codes(u""_s).size(), 3);
}

TEST_P(DatabaseContract, AReadScopeSeesOneSnapshot) {
    const QString look = u"SELECT 名称 FROM M部門 WHERE コード = '010'"_s;
    ReadScope scope(connection);
    // The snapshot must date from the scope's beginning, even without a read before the update.
    engine->TryOutside(u"UPDATE M部門 SET 名称 = '新'"_s);
    EXPECT_EQ(Column(connection, look, u"名称"), QStringList({u"総務部"_s}));
    EXPECT_EQ(Column(connection, look, u"名称"), QStringList({u"総務部"_s}));
    scope.End();
    EXPECT_TRUE(engine->TryOutside(u"UPDATE M部門 SET 名称 = '新'"_s));
    EXPECT_EQ(Column(connection, look, u"名称"), QStringList({u"新"_s}));
}

TEST_P(DatabaseContract, WhatAScopeRemembersEndsWithIt) {
    const QString look = u"SELECT 名称 FROM M部門 WHERE コード = '010'"_s;
    for (const QString& name : {u"一"_s, u"二"_s, u"三"_s}) {
        ASSERT_TRUE(engine->TryOutside(u"UPDATE M部門 SET 名称 = '"_s + name + u"'"_s));
        const ReadScope scope(connection);
        EXPECT_EQ(Column(connection, look, u"名称"), QStringList({name}));
        EXPECT_EQ(Column(connection, look, u"名称"), QStringList({name}));
    }
}

TEST_P(DatabaseContract, ScopesInsideScopesDoNothing) {
    ReadScope outer(connection);
    { const ReadScope inner(connection); }
    engine->TryOutside(u"UPDATE M部門 SET 名称 = '新'"_s);
    EXPECT_EQ(Column(connection, u"SELECT TOP 1 名称 FROM M部門 ORDER BY コード"_s, u"名称"),
              QStringList({u"総務部"_s}));
    outer.End();
    outer.End();
    EXPECT_TRUE(engine->TryOutside(u"UPDATE M部門 SET 名称 = '新'"_s));
}

TEST_P(DatabaseContract, AWriteEndsTheScopeAndIsSeen) {
    const QString look = u"SELECT COUNT(*) AS 件数 FROM M部門"_s;
    ReadScope scope(connection);
    EXPECT_EQ(Column(connection, look, u"件数"), QStringList({u"2"_s}));
    connection.Execute(u"DELETE FROM M部門 WHERE コード = '010'"_s);
    EXPECT_EQ(Column(connection, look, u"件数"), QStringList({u"1"_s}));
    EXPECT_TRUE(engine->TryOutside(u"DELETE FROM M部門"_s));
}

TEST_P(DatabaseContract, AConnectionMayCloseInsideAScope) {
    ReadScope scope(connection);
    Codes(u""_s);
    connection.Close();
    EXPECT_TRUE(engine->TryOutside(u"DELETE FROM M部門"_s));
    Open(connection, ConnectMode::Read);
    scope.End();
    EXPECT_EQ(Codes(u""_s).size(), 4);
}

TEST_P(DatabaseContract, EqualLookUpsWithOtherValuesDoNotMixUp) {
    const ReadScope scope(connection);
    for (int round = 0; round < 3; ++round) {
        for (const QString& code : {u"00001"_s, u"00002"_s, u"00003"_s, u"x"_s}) {
            const QStringList expected = code == u"x"_s ? QStringList() : QStringList({code});
            EXPECT_EQ(Codes(u"WHERE [M担当者].[コード] = '"_s + code + u"'"_s), expected);
            EXPECT_EQ(Codes(u"WHERE 氏名 <> 'a''b' AND [M担当者].[コード] = '"_s + code + u"' /* ' */"_s), expected);
        }
    }
}

TEST_P(DatabaseContract, LiteralsStandAlsoWhereNoValueCan) {
    EXPECT_EQ(Column(connection,
                     u"SELECT 'x' AS 印, 氏名 AS 名 FROM M部門 INNER JOIN M担当者 ON '1' = '1' "
                     u"WHERE M部門.コード = '010' ORDER BY M担当者.コード"_s,
                     u"印"),
              QStringList(4, u"x"_s));
    EXPECT_EQ(Column(connection, u"SELECT 名称 FROM M部門 WHERE 名称 <> 'y' ORDER BY コード DESC"_s, u"名称"),
              QStringList({u"営業部"_s, u"総務部"_s}));
}

TEST_P(DatabaseContract, ChangedTablesShowTheirNewColumns) {
    const QString all = u"SELECT * FROM M部門 WHERE コード = '010'"_s;
    EXPECT_EQ(Column(connection, all, u"名称"), QStringList({u"総務部"_s}));
    engine->Run(u"ALTER TABLE M部門 ADD COLUMN 追加 VARCHAR(20)"_s);
    EXPECT_EQ(Column(connection, all, u"追加"), QStringList({u"(Null)"_s}));
}

TEST_P(DatabaseContract, TopLimitsTheRows) {
    EXPECT_EQ(Column(connection, u"SELECT TOP 2 コード FROM M担当者 ORDER BY コード DESC"_s, u"コード"),
              QStringList({u"00004"_s, u"00003"_s}));
}

TEST_P(DatabaseContract, RightJoinsGiveTheRowsOfHandWrittenLeftJoins) {
    const QString expected = u"00001,00002,00003,00004 総務部,営業部,(Null),(Null)"_s;
    EXPECT_EQ(Names(u"M担当者 LEFT JOIN M部門 ON M部門.コード = M担当者.部門コード"_s), expected);
    EXPECT_EQ(Names(u"M部門 RIGHT JOIN M担当者 ON M部門.コード = M担当者.部門コード"_s), expected);
    const QString nested =
        u" RIGHT JOIN (M部門 RIGHT JOIN M担当者 ON M部門.コード = M担当者.部門コード ) ON 親.コード = M担当者.部門コード"_s;
    EXPECT_EQ(Names(u"M部門 AS 親"_s + nested), expected);
    EXPECT_EQ(Names(u"M部門 AS 外 INNER JOIN (M部門 AS 親"_s + nested + u") ON 外.コード = M担当者.部門コード"_s),
              u"00001,00002 総務部,営業部"_s);
}

TEST_P(DatabaseContract, AStarOverARightJoinKeepsTheOrderOfTheTables) {
    Recordset rows;
    rows.Open(
        u"SELECT * FROM M部門 RIGHT JOIN M担当者 ON M部門.コード = M担当者.部門コード WHERE M担当者.コード = '00001'"_s,
        connection);
    EXPECT_EQ(rows[u"コード"].Text(), u"010"_s);
}

TEST_P(DatabaseContract, ChainsOfThousandsOfTermsRun) {
    QStringList any, all;
    for (int i = 1; i <= 2000; ++i) {
        any.append(u"M担当者.コード = '%1'"_s.arg(i * 2, 5, 10, QChar(u'0')));
        all.append(u"M担当者.コード <> '%1'"_s.arg(i + 1, 5, 10, QChar(u'0')));
    }
    EXPECT_EQ(Codes(u"WHERE ("_s + any.join(u" OR "_s) + u") ORDER BY コード"_s),
              QStringList({u"00002"_s, u"00004"_s}));
    EXPECT_EQ(Codes(u"WHERE "_s + all.join(u" AND "_s)), QStringList({u"00001"_s}));
    EXPECT_EQ(Codes(u"WHERE 部門コード = '010' AND ("_s + any.join(u" OR "_s) + u") OR コード = '00003'"_s),
              QStringList({u"00003"_s}));
}

TEST_P(DatabaseContract, SearchesFindJapaneseTextsInEveryForm) {
    for (const QString& text : {u"ヤマダ"_s, u"やまだ"_s, u"ﾔﾏﾀﾞ"_s})
        EXPECT_EQ(Codes(u"WHERE カナ LIKE '%"_s + text + u"%'"_s), QStringList({u"00001"_s})) << text.toStdString();
    for (const QString& text : {u"a"_s, u"A"_s, u"ａ"_s, u"Ａ"_s})
        EXPECT_EQ(Codes(u"WHERE 氏名 LIKE '%"_s + text + u"'"_s), QStringList({u"00004"_s})) << text.toStdString();
    EXPECT_EQ(Codes(u"WHERE カナ LIKE '[ｱ-ｻ]%'"_s), QStringList({u"00002"_s}));
    EXPECT_EQ(Codes(u"WHERE カナ NOT LIKE '[!ヤ]%' ORDER BY コード"_s), QStringList({u"00001"_s}));
    EXPECT_EQ(Codes(u"WHERE メモ LIKE '%[%] [[]ab]'"_s), QStringList({u"00004"_s}));
    EXPECT_EQ(Codes(u"WHERE 氏名 LIKE '_田%' ORDER BY コード"_s), QStringList({u"00001"_s, u"00003"_s}));
}

TEST_P(DatabaseContract, NullIsNeitherLikeNorUnlikeAnything) {
    EXPECT_EQ(Codes(u"WHERE ログインID LIKE '%' ORDER BY コード"_s), QStringList({u"00001"_s, u"00002"_s}));
    EXPECT_EQ(Codes(u"WHERE ログインID NOT LIKE 'x%' ORDER BY コード"_s), QStringList({u"00001"_s, u"00002"_s}));
}

TEST_P(DatabaseContract, EqualityIsExactButForLoginNames) {
    EXPECT_EQ(Codes(u"WHERE 氏名 = '鈴木A'"_s), QStringList());
    EXPECT_EQ(Codes(u"WHERE カナ = 'ヤマダ タロウ'"_s), QStringList());
    EXPECT_EQ(Codes(u"WHERE ログインID = 'yAMADA'"_s), QStringList({u"00001"_s}));
    EXPECT_EQ(Codes(u"WHERE 'yAMADA' = M担当者.ログインID"_s), QStringList({u"00001"_s}));
}

TEST_P(DatabaseContract, LoginNamesIgnoreTheCaseOfAsciiLettersAlone) {
    engine->Run(
        u"INSERT INTO M担当者 (コード, ログインID) VALUES ('1', 'Ｙａ'), ('2', 'Éa'), ('3', 'Яa'), ('4', 'a b'),"
        u" ('5', 'ﾔa'), ('6', 'straße')"_s);
    for (const QString& other : {u"ｙａ"_s, u"éA"_s, u"яA"_s, u"a b "_s, u"ヤa"_s, u"strasse"_s, u"Ea"_s})
        EXPECT_EQ(Codes(u"WHERE ログインID = '"_s + other + u"'"_s), QStringList()) << other.toStdString();
    EXPECT_EQ(Codes(u"WHERE ログインID = 'ÉA'"_s), QStringList({u"2"_s}));
    EXPECT_EQ(Codes(u"WHERE ログインID = 'A B'"_s), QStringList({u"4"_s}));
    EXPECT_EQ(Codes(u"WHERE ログインID = 'STRAßE'"_s), QStringList({u"6"_s}));
}

TEST_P(DatabaseContract, ComparisonsThatLackASideAreFailuresOfTheStatement) {
    for (const QString& where : {u"ログインID ="_s, u"(= ログインID)"_s, u"= ログインID"_s, u"M担当者.ログインID = ;"_s,
                                 u"ログインID = AND コード = ''"_s, u"(ログインID =) OR コード = ''"_s, u"LIKE 'a'"_s,
                                 u"氏名 LIKE"_s, u"氏名 NOT LIKE"_s, u"(LIKE)"_s}) {
        Recordset rows;
        const QString sql = u"SELECT コード FROM M担当者 WHERE "_s + where;
        EXPECT_EQ(NumberOf([&] { rows.Open(sql, connection); }), kStatementFailure) << sql.toStdString();
    }
    EXPECT_EQ(Codes(u""_s).size(), 4);
}

TEST_P(DatabaseContract, LikeOverAnExpressionFindsJapaneseTextsInEveryForm) {
    EXPECT_EQ(Codes(u"WHERE (コード || カナ) LIKE '00001ヤマダ%'"_s), QStringList({u"00001"_s}));
    EXPECT_EQ(Codes(u"WHERE COALESCE(カナ, '') LIKE ('%さとう%')"_s), QStringList({u"00002"_s}));
    EXPECT_EQ(Codes(u"WHERE 'ﾔﾏ' LIKE 'やま' AND NOT (カナ) LIKE '%さ%' AND コード < '00002'"_s),
              QStringList({u"00001"_s}));
}

TEST_P(DatabaseContract, NamesAreOrderedBySyllabaryAndByCodePage) {
    engine->Run(
        u"INSERT INTO M担当者 (コード, 氏名, カナ) VALUES ('5', '亜', 'ごとう'), ('6', '髙橋', 'ｺﾞｳ'),"
        u" ('7', 'abc', 'コトウ'), ('8', 'ＡＢ', 'ん')"_s);
    EXPECT_EQ(Codes(u"ORDER BY M担当者.カナ"_s),
              QStringList({u"6"_s, u"7"_s, u"5"_s, u"00002"_s, u"00004"_s, u"00001"_s, u"00003"_s, u"8"_s}));
    EXPECT_EQ(Codes(u"ORDER BY 氏名 DESC"_s),
              QStringList({u"00003"_s, u"6"_s, u"00004"_s, u"00001"_s, u"00002"_s, u"5"_s, u"7"_s, u"8"_s}));
}

TEST_P(DatabaseContract, UnknownProvidersAreRefused) {
    Connection other;
    EXPECT_EQ(NumberOf([&] { other.Open(u"Provider=NoSuch.1;Data Source=x"_s); }), kProviderNotFound);
    EXPECT_EQ(NumberOf([&] { other.Open(QString()); }), kProviderNotFound);
    EXPECT_FALSE(other.IsOpen());
}

TEST_P(DatabaseContract, ATransactionKeepsAllOrNothing) {
    const QString look = u"SELECT コード FROM M部門 ORDER BY コード"_s;
    {
        const Transaction forgotten(connection);
        connection.Execute(u"DELETE FROM M部門 WHERE コード = '010'"_s);
        connection.Execute(u"INSERT INTO M部門 (コード, 名称) VALUES ('030', '開発部')"_s);
        EXPECT_EQ(Column(connection, look, u"コード"), QStringList({u"020"_s, u"030"_s}));
    }
    EXPECT_EQ(Column(connection, look, u"コード"), QStringList({u"010"_s, u"020"_s}));
    Transaction kept(connection);
    connection.Execute(u"DELETE FROM M部門 WHERE コード = '010'"_s);
    kept.Commit();
    Connection other;
    Open(other, ConnectMode::Read);
    EXPECT_EQ(Column(other, look, u"コード"), QStringList({u"020"_s}));
}

TEST_P(DatabaseContract, WhatATransactionHasWrittenNobodyElseChangesBeforeItsEnd) {
    const QString change = u"UPDATE M部門 SET 名称 = '新' WHERE コード = '010'"_s;
    {
        const Transaction writing(connection);
        connection.Execute(u"UPDATE M部門 SET 名称 = '古' WHERE コード = '010'"_s);
        EXPECT_FALSE(engine->TryOutside(change));
    }
    EXPECT_TRUE(engine->TryOutside(change));
}

TEST_P(DatabaseContract, AFailedStatementLeavesTheTransactionToItsOwner) {
    {
        const Transaction writing(connection);
        connection.Execute(u"DELETE FROM M部門"_s);
        EXPECT_EQ(NumberOf([&] { connection.Execute(u"DELETE FROM M無い"_s); }), kStatementFailure);
    }
    EXPECT_EQ(Column(connection, u"SELECT コード FROM M部門 ORDER BY コード"_s, u"コード"),
              QStringList({u"010"_s, u"020"_s}));
}

TEST_P(DatabaseContract, AFailedStatementSpoilsNothingThatIsCommittedBehindIt) {
    Transaction writing(connection);
    connection.Execute(u"DELETE FROM M部門 WHERE コード = '010'"_s);
    EXPECT_EQ(NumberOf([&] { connection.Execute(u"DELETE FROM M無い"_s); }), kStatementFailure);
    EXPECT_EQ(Column(connection, u"SELECT コード FROM M部門"_s, u"コード"), QStringList({u"020"_s}));
    connection.Execute(u"INSERT INTO M部門 (コード, 名称) VALUES ('030', '開発部')"_s);
    writing.Commit();
    Connection other;
    Open(other, ConnectMode::Read);
    EXPECT_EQ(Column(other, u"SELECT コード FROM M部門 ORDER BY コード"_s, u"コード"),
              QStringList({u"020"_s, u"030"_s}));
}

TEST_P(DatabaseContract, AFailedReadInsideAScopeLetsTheNextOnesThrough) {
    ReadScope scope(connection);
    Recordset rows;
    EXPECT_EQ(NumberOf([&] { rows.Open(u"SELECT 無い列 FROM M部門"_s, connection); }), kStatementFailure);
    EXPECT_EQ(Codes(u""_s).size(), 4);
    scope.End();
    connection.Execute(u"DELETE FROM M部門"_s);
    EXPECT_EQ(Column(connection, u"SELECT コード FROM M部門"_s, u"コード"), QStringList());
}

TEST_P(DatabaseContract, ATransactionOnAClosedConnectionIsRefused) {
    Connection closed;
    EXPECT_EQ(NumberOf([&] { const Transaction writing(closed); }), kObjectClosed);
}

INSTANTIATE_TEST_SUITE_P(Engines, DatabaseContract, testing::ValuesIn(AllEnginesBegin(), AllEnginesEnd()),
                         [](const auto& kind) { return kind.param.name; });
