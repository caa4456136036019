#include "access/ConditionLabels.h"

#include "access/CompanyFixture.h"
#include "frame/Mod要員名簿照会.h"

using namespace Qt::StringLiterals;

namespace {

const QString kMenu = u"販路推進データ管理"_s;
const QString kProgram = u"要員名簿照会"_s;
const QString kComplaint = u"システムデータベースに問題があり登録できません"_s;

const QString kStatement =
    u"UPDATE 販路推進データ管理 SET  条件項目名A = '事業所コード', 条件項目名B = '開始部門コード',"
    u" 条件項目名C = '終了部門コード', 条件項目名D = '開始セクションコード', 条件項目名E = '終了セクションコード',"
    u" 条件項目名F = '開始役職コード', 条件項目名G = '終了役職コード', 条件項目名H = '開始担当者コード',"
    u" 条件項目名I = '終了担当者コード', 条件項目名J = '検索名称(全角15文字)',"
    u" 条件項目名K = '検索カナ(半角30文字)', 条件項目名L = '検索電話(半角30文字)',"
    u" 条件項目名M = '検索郵便番号(半角30文字)', 条件項目名N = '検索住所(全角15文字)',"
    u" 条件項目名O = '表示順区分', 条件項目名P = '', 条件項目名Q = '', 条件項目名R = '', 条件項目名S = '',"
    u" 条件項目名T = '', 条件項目名U = '', 条件項目名V = '', 条件項目名W = '', 条件項目名X = '',"
    u" 条件項目名Y = '', 条件項目名Z = '' WHERE プログラムID = '要員名簿照会'"_s;

class ConditionLabelsTest : public WithCompany {
  protected:
    QStringList Labels(const QString& program) {
        QStringList columns;
        for (char16_t letter = u'A'; letter <= u'Z'; ++letter) columns.append(u"条件項目名"_s + QChar(letter));
        return installation.Configuration()
            .Rows(u"SELECT %1 FROM 販路推進データ管理 WHERE プログラムID = '%2'"_s.arg(columns.join(u','), program))
            .first();
    }
};

}  // namespace

TEST_F(ConditionLabelsTest, FifteenNamesAreWrittenAndElevenPlacesEmptied) {
    QStringList old;
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter) old.append(u"条件項目名%1 = '古'"_s.arg(QChar(letter)));
    installation.Configuration().Execute(
        u"UPDATE 販路推進データ管理 SET %1 WHERE プログラムID = '要員名簿照会'"_s.arg(old.join(u',')));
    PublishConditionLabels(kMenu, kProgram);
    EXPECT_EQ(Labels(kProgram),
              QStringList({u"事業所コード"_s, u"開始部門コード"_s, u"終了部門コード"_s, u"開始セクションコード"_s,
                           u"終了セクションコード"_s, u"開始役職コード"_s, u"終了役職コード"_s, u"開始担当者コード"_s,
                           u"終了担当者コード"_s, u"検索名称(全角15文字)"_s, u"検索カナ(半角30文字)"_s,
                           u"検索電話(半角30文字)"_s, u"検索郵便番号(半角30文字)"_s, u"検索住所(全角15文字)"_s,
                           u"表示順区分"_s}) +
                  QStringList(11, u""_s));
    EXPECT_TRUE(History().isEmpty());
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(ConditionLabelsTest, OtherProgramsOfTheMenuKeepTheirs) {
    installation.Configuration().Execute(
        u"UPDATE 販路推進データ管理 SET 条件項目名P = '別' WHERE プログラムID = '要員台帳更新'"_s);
    PublishConditionLabels(kMenu, kProgram);
    EXPECT_EQ(Labels(u"要員台帳更新"_s)[15], u"別"_s);
    EXPECT_TRUE(Labels(u"要員台帳更新"_s)[0].isNull());
}

TEST_F(ConditionLabelsTest, AMenuWithoutTheProgramGetsNoRowAndNothingIsSaid) {
    installation.Configuration().Execute(u"DELETE FROM 販路推進データ管理 WHERE プログラムID = '要員名簿照会'"_s);
    PublishConditionLabels(kMenu, kProgram);
    EXPECT_EQ(installation.Configuration().Value(u"SELECT COUNT(*) FROM 販路推進データ管理"_s), u"1"_s);
    EXPECT_TRUE(History().isEmpty());
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(ConditionLabelsTest, AMissingMenuIsSaidOnceAndLeavesTheWholeStatementInTheHistory) {
    installation.Configuration().Execute(u"DROP TABLE 販路推進データ管理"_s);
    PublishConditionLabels(kMenu, kProgram);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kComplaint});
    EXPECT_EQ(History(), QStringList{FailedRow(kStatement, Globals().ConfigConnection)});
}

TEST_F(ConditionLabelsTest, ALockedMenuIsSaidOnceAndLosesTheRowOfTheHistoryToo) {
    OtherProgram other(installation.Configuration().Path());
    other.Run(u"BEGIN IMMEDIATE"_s);
    PublishConditionLabels(kMenu, kProgram);
    other.Run(u"ROLLBACK"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kComplaint});
    EXPECT_TRUE(History().isEmpty());
    PublishConditionLabels(kMenu, kProgram);
    EXPECT_EQ(Labels(kProgram)[14], u"表示順区分"_s);
    EXPECT_EQ(services.dialogs.shown.size(), 1);
}

TEST_F(ConditionLabelsTest, AnyLabelsGoToAnyMenu) {
    ConditionLabels labels;
    for (size_t i = 0; i < labels.size(); ++i) labels[i] = QString::number(i);
    StoreConditionLabels(u"販路推進補助機能"_s, kProgram, labels);
    StoreConditionLabels(kMenu, u"要員台帳更新"_s, labels);
    EXPECT_EQ(Labels(u"要員台帳更新"_s), QStringList(labels.begin(), labels.end()));
    EXPECT_TRUE(Labels(kProgram)[0].isNull());
}
