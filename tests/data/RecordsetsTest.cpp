#include "data/Recordsets.h"

#include "data/DataFixture.h"

using namespace Qt::StringLiterals;

namespace {
using Recordsets = WithConnections;

QString DescriptionOn(database::Connection& connection, const QString& sql) {
    return FailureOf([&] { database::Recordset().Open(sql, connection); }).description;
}

QString Doubled(QString text) { return text.replace(u"'"_s, u"''"_s); }
}  // namespace

TEST_F(Recordsets, ARowIsFoundAndIsFirst) {
    database::Recordset record;
    EXPECT_TRUE(OpenRecordset(record, u"SELECT * FROM M担当者"_s));
    EXPECT_EQ(record[u"コード"].Text(), u"00001"_s);
    record.Close();
    EXPECT_TRUE(OpenConfigRecordset(record, u"SELECT * FROM 動作環境定義"_s));
    EXPECT_EQ(record[u"動作環境定義ID"].Text(), u"001"_s);
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(Recordsets, NoRowsIsFalseWithAnOpenRecordset) {
    database::Recordset record;
    EXPECT_FALSE(OpenRecordset(record, u"SELECT * FROM M担当者 WHERE コード = '9'"_s));
    EXPECT_TRUE(record.IsOpen());
    record.Close();
    EXPECT_FALSE(OpenConfigRecordset(record, u"SELECT * FROM プログラム連携情報"_s));
    EXPECT_TRUE(record.IsOpen());
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(Recordsets, TheRecordFlagLeavesTheStatementAlsoWithoutRows) {
    database::Recordset record;
    OpenRecordset(record, u"SELECT * FROM M担当者 WHERE コード = '9'"_s, LogStatement::Yes);
    EXPECT_EQ(History(), QStringList{u"出力終了 SELECT * FROM M担当者 WHERE コード = ''9''"_s});
}

TEST_F(Recordsets, AFailedReadLeavesDescriptionAndStatement) {
    const QString sql = u"SELECT * FROM M無 WHERE a = 'b'"_s;
    const QString description = DescriptionOn(Globals().MainConnection, sql);
    database::Recordset record;
    EXPECT_FALSE(OpenRecordset(record, sql, LogStatement::Yes));
    EXPECT_EQ(History(), QStringList{u"エラー "_s + Doubled(description + sql)});
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(Recordsets, CloseAfterAFailedReadRaises) {
    database::Recordset record;
    EXPECT_FALSE(OpenRecordset(record, u"SELECT * FROM M無"_s));
    EXPECT_FALSE(record.IsOpen());
    EXPECT_EQ(FailureOf([&] { record.Close(); }).number, database::kObjectClosed);
    CloseQuietly(record);
    EXPECT_FALSE(record.IsOpen());
}

TEST_F(Recordsets, AFailedReadDropsTheRowsThatTheVariableHeld) {
    database::Recordset record;
    EXPECT_TRUE(OpenRecordset(record, u"SELECT * FROM M担当者"_s));
    EXPECT_FALSE(OpenRecordset(record, u"SELECT * FROM M無"_s));
    EXPECT_FALSE(record.IsOpen());
}

TEST_F(Recordsets, AnUndoubledQuoteFailsInTheWrapper) {
    const QString sql = u"SELECT * FROM M担当者 WHERE 氏名 = 'O'Neil'"_s;
    const QString description = DescriptionOn(Globals().MainConnection, sql);
    database::Recordset record;
    EXPECT_FALSE(OpenRecordset(record, sql));
    EXPECT_EQ(History(), QStringList{u"エラー "_s + Doubled(description + sql)});
}

TEST_F(Recordsets, AFailingStatementOnAnotherConfigurationTableLeavesARow) {
    const QString sql = u"SELECT 無 FROM 動作環境定義"_s;
    const QString description = DescriptionOn(Globals().ConfigConnection, sql);
    database::Recordset record;
    EXPECT_FALSE(OpenConfigRecordset(record, sql));
    EXPECT_EQ(History(), QStringList{u"エラー "_s + Doubled(description + sql)});
}

TEST_F(Recordsets, AFailingStatementOnTheHistoryTableWritesNothing) {
    database::Recordset record;
    EXPECT_FALSE(OpenConfigRecordset(record, u"SELECT 無 FROM プログラム稼動履歴"_s));
    EXPECT_FALSE(ExecuteConfigSql(u"DELETE FROM プログラム稼動履歴 WHERE 無 = 1"_s));
    EXPECT_FALSE(ExecuteConfigSqlLogged(u"DELETE FROM プログラム稼動履歴 WHERE 無 = 1"_s));
    EXPECT_TRUE(History().isEmpty());
    EXPECT_EQ(Globals().ProcCounter, 0);
}

TEST_F(Recordsets, AStatementRunsAndLeavesARowOnlyWhenAsked) {
    EXPECT_TRUE(ExecuteConfigSql(u"UPDATE 動作環境定義 SET 運用事業所コード = '001'"_s));
    EXPECT_TRUE(History().isEmpty());
    EXPECT_TRUE(ExecuteConfigSqlLogged(u"UPDATE 動作環境定義 SET 運用事業所コード = '002'"_s));
    EXPECT_EQ(History(), QStringList{u"出力終了 UPDATE 動作環境定義 SET 運用事業所コード = ''002''"_s});
}

TEST_F(Recordsets, AFailingStatementLeavesDescriptionAndStatement) {
    const QString sql = u"UPDATE 動作環境定義 SET 無 = '1'"_s;
    const QString description = FailureOf([&] { Globals().ConfigConnection.Execute(sql); }).description;
    EXPECT_FALSE(ExecuteConfigSql(sql));
    EXPECT_FALSE(ExecuteConfigSqlLogged(sql));
    EXPECT_EQ(History(), QStringList(2, u"エラー "_s + Doubled(description + sql)));
}

TEST_F(Recordsets, WithoutAGeneralConnectionEachReadLeavesARow) {
    Globals().MainConnection.Close();
    database::Recordset record;
    EXPECT_FALSE(OpenRecordset(record, u"SELECT 1"_s, LogStatement::Yes));
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().first().startsWith(u"エラー "_s));
    EXPECT_TRUE(History().first().endsWith(u"SELECT 1"_s));
}
