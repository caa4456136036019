#include <gtest/gtest.h>

#include <QFile>

#include "support/RealProgram.h"

using namespace Qt::StringLiterals;

namespace {

/// Starts of the real program that fail before the main form is shown.
class ProgramFailure : public testing::Test {
  protected:
    void ExpectEnd(const QStringList& messages) {
        QString told;
        for (const QString& message : messages) told += u"message="_s + message + u'\n';
        const ProgramRun run = RunProgram(installation);
        EXPECT_EQ(run.output, told);
        EXPECT_EQ(run.exitCode, 0);
    }
    void AskForPins() const {
        installation.General().Execute(
            u"UPDATE Mユーザ SET 暗証番号有無 = '1'; UPDATE M事業所 SET 暗証番号有無 = '1'"_s);
    }

    SampleInstallation installation;
};

}  // namespace

TEST_F(ProgramFailure, WithoutItsDatabaseItSaysSoAndEnds) {
    ASSERT_TRUE(QFile::remove(installation.General().Path()));
    ExpectEnd({u"データベースが使用できません。"_s});
    EXPECT_EQ(installation.HistoryTexts().last(), u"終了"_s);
}

TEST_F(ProgramFailure, AStoredStaffCodeWithAQuoteIsADatabaseFailure) {
    installation.SetEnvironment(u"起動担当者コード"_s, u"0'1"_s);
    ExpectEnd({u"データベースが使用できません。"_s});
}

TEST_F(ProgramFailure, WithoutACompanyItSaysSoAndEnds) {
    installation.General().Execute(u"DELETE FROM Mユーザ"_s);
    ExpectEnd({u"ユーザ情報が使用できません。"_s});
    EXPECT_EQ(installation.HistoryTexts(), QStringList({u"開始 "_s, u"終了"_s}));
}

TEST_F(ProgramFailure, WithoutASignInItSaysSoBehindThePinDialogAndEnds) {
    AskForPins();
    installation.SetEnvironment(u"起動担当者コード"_s, QString());
    ExpectEnd({u"販路推進データ管理/暗証確認"_s, u"操作権限がありません。"_s});
    EXPECT_EQ(installation.HistoryTexts(), QStringList({u"開始 "_s, u"終了"_s}));
}

TEST_F(ProgramFailure, AMenuTableThatIsMissingIsComplainedOfOnceAndThenRefusesWhereRightsAreEnforced) {
    AskForPins();
    installation.Configuration().Execute(u"DROP TABLE 販路推進データ管理"_s);
    ExpectEnd({u"システムデータベースに問題があり登録できません"_s, u"販路推進データ管理/暗証確認"_s,
               u"操作権限がありません。"_s});
}

TEST_F(ProgramFailure, ARuntimeErrorOfTheFirstSearchIsShownAndEndsTheProcess) {
    installation.ClearStaff();
    installation.AddStaff(u"00001"_s, {{u"住所A"_s, u"東京都港区"_s}, {u"住所B"_s, QString()}});
    const ProgramRun run = RunProgram(installation);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.output.startsWith(u"message="_s)) << run.output.toStdString();
    EXPECT_EQ(run.output.count(u'\n'), 1) << "one box and no first list: " << run.output.toStdString();
    EXPECT_EQ(installation.HistoryTexts().last(), u"終了"_s);
}
