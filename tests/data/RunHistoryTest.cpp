#include "data/RunHistory.h"

#include "data/DataFixture.h"
#include "data/Recordsets.h"

using namespace Qt::StringLiterals;

namespace {

class RunHistory : public WithConnections {
  protected:
    QList<QStringList> Rows() const {
        return installation.Configuration().Rows(
            u"SELECT 実行日付, プログラムID, proccounter, 摘要, 運用事業所コード, 起動担当者コード, ユーザID"
            u" FROM プログラム稼動履歴 ORDER BY rowid"_s);
    }
};

QStringList Row(const QString& counter, const QString& text) {
    return {u"20261121 093015"_s, u"要員名簿照会"_s, counter, text, u"000"_s, u"00001"_s, u"tester"_s};
}

}  // namespace

TEST_F(RunHistory, StatementHasNoBlankBeforeValues) {
    Globals().ProcCounter = 42;
    EXPECT_EQ(
        BuildHistoryStatement(u"終了"_s),
        u"INSERT INTO プログラム稼動履歴 (実行日付,プログラムID,proccounter,摘要,運用事業所コード,起動担当者コード,"
        u"ユーザID)VALUES ('20261121 093015', '要員名簿照会', '000000000042', '終了', '000', '00001', 'tester')"_s);
}

TEST_F(RunHistory, EachWriterHasItsWord) {
    RecordOutputStart(u"印刷"_s);
    RecordOutputEnd(u"印刷"_s);
    RecordRunError(u"no such table"_s);
    RecordRunEnd();
    EXPECT_EQ(Rows(), (QList<QStringList>{
                          Row(u"000000000001"_s, u"出力開始 印刷"_s), Row(u"000000000002"_s, u"出力終了 印刷"_s),
                          Row(u"000000000003"_s, u"エラー no such table"_s), Row(u"000000000004"_s, u"終了"_s)}));
}

TEST_F(RunHistory, TextIsQuotedTwiceSoThatQuotesAreStoredDoubled) {
    RecordRunError(u"near 'x'"_s);
    RecordOutputEnd(u"SELECT 'a''b'"_s);
    RecordOutputStart(u"'"_s);
    EXPECT_EQ(History(), (QStringList{u"エラー near ''x''"_s, u"出力終了 SELECT ''a''''b''"_s, u"出力開始 ''"_s}));
}

TEST_F(RunHistory, BlanksAtTheEndOfATextAreNotKept) {
    RecordOutputEnd(u"SELECT 1  "_s);
    EXPECT_EQ(History(), QStringList{u"出力終了 SELECT 1"_s});
}

TEST_F(RunHistory, TextsAreNeverCut) {
    const QString text = QString(100000, u'漢') + u"𠮷"_s;
    RecordRunError(text);
    EXPECT_EQ(History(), QStringList{u"エラー "_s + text});
}

TEST_F(RunHistory, ATextThatTheColumnRefusesLosesItsRowQuietly) {
    installation.Configuration().Execute(
        u"DROP TABLE プログラム稼動履歴; CREATE TABLE プログラム稼動履歴 (実行日付 TEXT, プログラムID TEXT,"
        u" proccounter TEXT, 摘要 TEXT CHECK (length(摘要) <= 10), 運用事業所コード TEXT, 起動担当者コード TEXT,"
        u" ユーザID TEXT)"_s);
    RecordRunError(u"これは長すぎる文"_s);
    RecordRunEnd();
    EXPECT_EQ(Rows(), QList<QStringList>{Row(u"000000000002"_s, u"終了"_s)});
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(RunHistory, OnlyTheUpdateMonitorLeavesItsNoiseOut) {
    RecordOutputEnd(u"未集計情報"_s);
    Globals().ProgramId = u"販路更新モニタ2"_s;
    RecordOutputEnd(u"SELECT 未集計情報 "_s);
    RecordOutputEnd(u"集計情報"_s);
    RecordOutputStart(u"未集計情報"_s);
    RecordRunError(u"未集計情報"_s);
    EXPECT_EQ(History(), (QStringList{u"出力終了 未集計情報"_s, u"出力終了 集計情報"_s, u"出力開始 未集計情報"_s,
                                      u"エラー 未集計情報"_s}));
    EXPECT_EQ(Globals().ProcCounter, 4);
}

TEST_F(RunHistory, RowsCarryOfficeAndStaffOfTheirMoment) {
    RecordOutputStart(u"印刷"_s);
    Globals().Staff.LaunchingStaffCode.clear();
    Globals().Environment.OperatingOfficeCode = u"002"_s;
    services.clock.now = services.clock.now.addSecs(3600);
    RecordOutputEnd(u"印刷"_s);
    EXPECT_EQ(Rows().last(), (QStringList{u"20261121 103015"_s, u"要員名簿照会"_s, u"000000000002"_s,
                                          u"出力終了 印刷"_s, u"002"_s, u""_s, u"tester"_s}));
}

TEST_F(RunHistory, ALoginNameWithAnApostropheHasAHistory) {
    Globals().UserId = u"o'brien"_s;
    RecordOutputStart(u"印刷"_s);
    RecordOutputEnd(u"印刷"_s);
    RecordRunError(u"no such table"_s);
    RecordRunEnd();
    EXPECT_EQ(History(), QStringList({u"出力開始 印刷"_s, u"出力終了 印刷"_s, u"エラー no such table"_s, u"終了"_s}));
    for (const QStringList& row : Rows()) EXPECT_EQ(row.last(), u"o'brien"_s);
}

TEST_F(RunHistory, CodesWithAnApostropheHaveAHistory) {
    Globals().Environment.OperatingOfficeCode = u"0'1"_s;
    Globals().Staff.LaunchingStaffCode = u"00'01 "_s;
    RecordOutputStart(u"印刷"_s);
    RecordRunEnd();
    EXPECT_EQ(Rows(), (QList<QStringList>{{u"20261121 093015"_s, u"要員名簿照会"_s, u"000000000001"_s,
                                           u"出力開始 印刷"_s, u"0'1"_s, u"00'01 "_s, u"tester"_s},
                                          {u"20261121 093015"_s, u"要員名簿照会"_s, u"000000000002"_s, u"終了"_s,
                                           u"0'1"_s, u"00'01 "_s, u"tester"_s}}));
}

TEST_F(RunHistory, ALostRowUsesUpItsNumber) {
    RecordOutputStart(u"印刷"_s);
    installation.Configuration().Execute(u"ALTER TABLE プログラム稼動履歴 RENAME TO 退避"_s);
    RecordOutputEnd(u"印刷"_s);
    installation.Configuration().Execute(u"ALTER TABLE 退避 RENAME TO プログラム稼動履歴"_s);
    RecordRunEnd();
    EXPECT_EQ(Rows(),
              (QList<QStringList>{Row(u"000000000001"_s, u"出力開始 印刷"_s), Row(u"000000000003"_s, u"終了"_s)}));
}

TEST_F(RunHistory, AMissingTableStopsNothingAndShowsNothing) {
    installation.Configuration().Execute(u"DROP TABLE プログラム稼動履歴"_s);
    RecordOutputStart(u"印刷"_s);
    RecordOutputEnd(u"印刷"_s);
    RecordRunError(u"x"_s);
    RecordRunEnd();
    EXPECT_EQ(Globals().ProcCounter, 4);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_TRUE(ExecuteConfigSql(u"UPDATE 動作環境定義 SET 起動担当者コード = '00002'"_s));
}

TEST_F(RunHistory, ALockedTableLosesTheRowQuietly) {
    OtherProgram other(installation.Configuration().Path());
    other.Run(u"BEGIN IMMEDIATE"_s);
    RecordOutputStart(u"印刷"_s);
    other.Run(u"ROLLBACK"_s);
    RecordRunEnd();
    EXPECT_EQ(Rows(), QList<QStringList>{Row(u"000000000002"_s, u"終了"_s)});
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(RunHistory, AReadOnlyDatabaseLosesTheRowQuietly) {
    Globals().ConfigConnection = database::Connection();
    Globals().ConfigConnection.Mode = database::ConnectMode::Read;
    Globals().ConfigConnection.Open(ConfigConnectionString(FileKind::Accdb, installation.Configuration().Path()));
    const QByteArray before = ReadBytes(installation.Configuration().Path());
    RecordRunError(u"x"_s);
    EXPECT_EQ(ReadBytes(installation.Configuration().Path()), before);
    EXPECT_EQ(Globals().ProcCounter, 1);
}

TEST_F(RunHistory, WithoutAConnectionRowsAreLostQuietly) {
    Globals().ConfigConnection.Close();
    RecordRunError(u"x"_s);
    RecordRunEnd();
    EXPECT_EQ(Globals().ProcCounter, 2);
    EXPECT_TRUE(Rows().isEmpty());
}

TEST_F(RunHistory, ACounterOfTwelveDigitsIsPrintedWhole) {
    Globals().ProcCounter = 123456789011.0;
    RecordRunEnd();
    EXPECT_EQ(Rows(), QList<QStringList>{Row(u"123456789012"_s, u"終了"_s)});
}
