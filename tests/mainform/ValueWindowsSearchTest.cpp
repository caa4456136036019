#include "globals/ProgramGlobals.h"
#include "inquiry/StaffQuery.h"
#include "mainform/ValueWindowsFixture.h"
#include "screen/Form.h"
#include "screen/modクライアント処理.h"

using namespace Qt::StringLiterals;

namespace {

using ValueSearchTest = ValueWindowsTest;

/// A search by one window and an SQLite condition that finds the same staff.
struct Search {
    size_t window;
    QStringList values;
    bool narrowing;
    QString condition;  ///< in the statement
    QString plain;      ///< for SQLite's instr, which does not normalise
};

QList<Search> Searches() {
    return {
        {0,
         {u"山"_s, u"田"_s},
         false,
         u" AND (M担当者.氏名 LIKE '%山%' OR M担当者.氏名 LIKE '%田%')"_s,
         u"instr(氏名, '山') OR instr(氏名, '田')"_s},
        {0,
         {u"山"_s, u"美"_s, u"　"_s},
         true,
         u" AND (M担当者.氏名 LIKE '%山%' AND M担当者.氏名 LIKE '%美%' AND M担当者.氏名 LIKE '%　%')"_s,
         u"instr(氏名, '山') AND instr(氏名, '美') AND instr(氏名, '　')"_s},
        {1,
         {u"ﾔﾏ"_s, u"ﾀﾞ"_s},
         false,
         u" AND (M担当者.カナ LIKE '%ﾔﾏ%' OR M担当者.カナ LIKE '%ﾀﾞ%')"_s,
         u"instr(カナ, 'ﾔﾏ') OR instr(カナ, 'ﾀﾞ')"_s},
        {1,
         {u"ﾔﾏ"_s, u"ﾐ"_s},
         true,
         u" AND (M担当者.カナ LIKE '%ﾔﾏ%' AND M担当者.カナ LIKE '%ﾐ%')"_s,
         u"instr(カナ, 'ﾔﾏ') AND instr(カナ, 'ﾐ')"_s},
        {2,
         {u"東京都"_s, u"本町"_s},
         false,
         u" AND ((M担当者.住所A LIKE '%東京都%' OR M担当者.住所A LIKE '%本町%')"
         u" OR (M担当者.住所B LIKE '%東京都%' OR M担当者.住所B LIKE '%本町%')"
         u" OR (M担当者.住所C LIKE '%東京都%' OR M担当者.住所C LIKE '%本町%'))"_s,
         u"instr(住所A || '/' || 住所B || '/' || 住所C, '東京都') OR instr(住所A || '/' || 住所B || '/' || 住所C, '本町')"_s},
        {2,
         {u"東京都"_s, u"区"_s},
         true,
         u" AND ((M担当者.住所A LIKE '%東京都%' AND M担当者.住所A LIKE '%区%')"
         u" OR (M担当者.住所B LIKE '%東京都%' AND M担当者.住所B LIKE '%区%')"
         u" OR (M担当者.住所C LIKE '%東京都%' AND M担当者.住所C LIKE '%区%'))"_s,
         u"instr(住所A, '東京都') AND instr(住所A, '区')"_s},
        {3,
         {u"03-"_s, u"-48"_s},
         false,
         u" AND (M担当者.電話 LIKE '%03-%' OR M担当者.電話 LIKE '%-48%')"_s,
         u"instr(電話, '03-') OR instr(電話, '-48')"_s},
        {4,
         {u"110-"_s, u"920"_s, u"0001"_s},
         false,
         u" AND (M担当者.郵便番号 LIKE '%110-%' OR M担当者.郵便番号 LIKE '%920%' OR M担当者.郵便番号 LIKE '%0001%')"_s,
         u"instr(郵便番号, '110-') OR instr(郵便番号, '920') OR instr(郵便番号, '0001')"_s},
    };
}

}  // namespace

TEST_F(ValueSearchTest, StatementContainsTheConditionOfEachWindow) {
    Start();
    for (const Search& search : Searches()) {
        Give(TextConditions()[search.window], search.values, search.narrowing);
        QString statement = Statement({}, search.condition);
        EXPECT_EQ(BuildStaffStatement(), statement);
        EXPECT_EQ(FailuresOfSearch(), 0);
        EXPECT_EQ(History().last(), u"出力終了 "_s + statement.replace(u"'"_s, u"''"_s));
        Click(u"btn_画面クリア"_s);
    }
}

TEST_F(ValueSearchTest, RowsAreThoseThatAQueryPastTheAdapterFinds) {
    Start();
    for (const Search& search : Searches()) {
        Give(TextConditions()[search.window], search.values, search.narrowing);
        Click(u"btn_集計検索"_s);
        const QStringList expected = Staff(search.plain);
        EXPECT_EQ(Found(), expected) << search.plain.toStdString();
        EXPECT_FALSE(expected.isEmpty()) << search.plain.toStdString();
        Click(u"btn_画面クリア"_s);
    }
}

TEST_F(ValueSearchTest, AllFiveWindowsTogetherJoinInTheOrderOfTheStatement) {
    Start();
    Give(TextConditions()[4], {u"1"_s});
    Give(Phones(), {u"0"_s, u"3"_s}, true);
    Give(Addresses(), {u"東"_s});
    Give(Kana(), {u"ﾔ"_s});
    Give(Names(), {u"山"_s, u"川"_s});
    EXPECT_EQ(
        BuildStaffStatement(),
        Statement({},
                  u" AND (M担当者.氏名 LIKE '%山%' OR M担当者.氏名 LIKE '%川%')"
                  u" AND (M担当者.カナ LIKE '%ﾔ%')"
                  u" AND ((M担当者.住所A LIKE '%東%') OR (M担当者.住所B LIKE '%東%') OR (M担当者.住所C LIKE '%東%'))"
                  u" AND (M担当者.電話 LIKE '%0%' AND M担当者.電話 LIKE '%3%')"
                  u" AND (M担当者.郵便番号 LIKE '%1%')"_s));
    EXPECT_EQ(FailuresOfSearch(), 0);
}

TEST_F(ValueSearchTest, ValuesOverrideTheSingleText) {
    Start();
    Enter(u"検索名称"_s, u"佐藤"_s);
    Give(Names(), {u"山"_s});
    EXPECT_EQ(Item(u"検索名称"_s).Text(), u"佐藤"_s);
    EXPECT_EQ(BuildStaffStatement(), Statement({}, u" AND (M担当者.氏名 LIKE '%山%')"_s));
}

TEST_F(ValueSearchTest, EmptyRowsGiveTheSearchBackToTheSingleItem) {
    Start();
    Enter(u"検索名称"_s, u"佐藤"_s);
    Give(Names(), {u"山"_s});
    Open(Names(), [](ModalRobot& user) {
        user.Press(Qt::Key_A, Qt::ControlModifier);
        user.Press(Qt::Key_Delete);
        user.Click(u"btn_戻る"_s);
    });
    EXPECT_FALSE(Given(Names()));
    EXPECT_TRUE(Item(u"検索名称"_s).Enabled());
    EXPECT_EQ(Focused(), u"検索名称"_s);
    EXPECT_EQ(BuildStaffStatement(), Statement({}, u" AND M担当者.氏名 LIKE '%佐藤%'"_s));
}

TEST_F(ValueSearchTest, NarrowedAddressesMustLieInOneColumnAndNotAcross) {
    installation.ClearStaff();
    installation.AddStaff(u"00001"_s, {{u"住所A"_s, u"甲町乙丘"_s}});
    installation.AddStaff(u"00002"_s, {{u"住所A"_s, u"甲町"_s}, {u"住所B"_s, u"乙丘"_s}});
    installation.AddStaff(u"00003"_s, {{u"住所C"_s, u"乙丘甲町"_s}});
    Start();
    Give(Addresses(), {u"甲"_s, u"乙"_s}, true);
    EXPECT_EQ(FailuresOfSearch(), 0);
    EXPECT_EQ(Found(), (QStringList{u"00001"_s, u"00003"_s}));
}

TEST_F(ValueSearchTest, SeveralTelephonesWorkWhereASingleOneFindsNothing) {
    Start();
    Enter(u"検索電話"_s, u"03-"_s);
    EXPECT_EQ(FailuresOfSearch(), 1);
    EXPECT_EQ(Globals().LastRow, -1);
    Give(Phones(), {u"03-"_s});
    EXPECT_EQ(FailuresOfSearch(), 0);
    EXPECT_EQ(Found(), Staff(u"instr(電話, '03-')"_s));
    EXPECT_GE(Globals().LastRow, 0);
}

TEST_F(ValueSearchTest, HalfWidthKanaWithItsVoicedMarkFindsEveryFormOfTheSound) {
    installation.ClearStaff();
    const QStringList kana = {u"ﾀﾞﾃ"_s, u"ダテ"_s, u"だて"_s, u"ﾀﾃ"_s, u"タテ"_s};
    for (int i = 0; i < kana.size(); ++i) installation.AddStaff(u"0000%1"_s.arg(i), {{u"カナ"_s, kana[i]}});
    Start();
    Give(Kana(), {u"ﾀﾞ"_s, u"ﾃ"_s}, true);
    EXPECT_EQ(FailuresOfSearch(), 0);
    EXPECT_EQ(Found(), (QStringList{u"00000"_s, u"00001"_s, u"00002"_s}));
}

TEST_F(ValueSearchTest, QuotesAreEscapedAndPercentIsAWildcard) {
    installation.ClearStaff();
    installation.AddStaff(u"00001"_s, {{u"氏名"_s, u"オ'ハラ"_s}});
    installation.AddStaff(u"00002"_s, {{u"氏名"_s, u"山田　太郎"_s}});
    installation.AddStaff(u"00003"_s, {{u"氏名"_s, u"山本　次郎"_s}});
    Start();
    Give(Names(), {u"'"_s, u"山%太"_s});
    EXPECT_EQ(FailuresOfSearch(), 0);
    EXPECT_EQ(Found(), (QStringList{u"00001"_s, u"00002"_s}));
}

TEST_F(ValueSearchTest, TenFullRowsInThreeAddressColumnsAreOneStatementThatRuns) {
    installation.ClearStaff();
    installation.AddStaff(u"00001"_s, {{u"住所B"_s, u"町"_s.repeated(30)}});
    Start();
    QStringList values;
    for (int row = 0; row < 10; ++row) values << QString(30, u"一二三四五六七八九町"[row]);
    Give(Addresses(), values);
    EXPECT_EQ(FailuresOfSearch(), 0);
    EXPECT_EQ(Found(), QStringList{u"00001"_s});
}

TEST_F(ValueSearchTest, RowsOfBlanksAreNoSelection) {
    Start();
    const QString before = BuildStaffStatement();
    Give(Names(), QStringList(10, QString(30, u' ')), true);
    EXPECT_FALSE(Given(Names()));
    EXPECT_TRUE(Item(u"検索名称"_s).Enabled());
    EXPECT_EQ(BuildStaffStatement(), before);
}

TEST_F(ValueSearchTest, UnclosedBracketIsRefusedByTheEngineAndTheListStaysEmpty) {
    Start();
    Give(Names(), {u"山["_s});
    EXPECT_EQ(FailuresOfSearch(), 1);
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(ValueSearchTest, ClearEmptiesTheWindows) {
    Start();
    const QStringList everybody = Found();
    for (const TextCondition& window : TextConditions()) Give(window, {u"1"_s});
    Open(Names(), [](ModalRobot& user) {
        user.Click(u"chb_絞込み"_s);
        GoBack(user);
    });
    Click(u"btn_集計検索"_s);
    ASSERT_NE(Found(), everybody);
    Click(u"btn_画面クリア"_s);
    for (const TextCondition& window : TextConditions()) {
        EXPECT_FALSE(IsFormLoaded(window.selection.window));
        EXPECT_FALSE(Globals().SelectionWindows.contains(window.selection.window));
        EXPECT_FALSE(Given(window));
        EXPECT_TRUE(Item(window.item).Enabled());
        EXPECT_EQ(Item(window.selection.button).ForeColor(), QColor(0, 0, 128));
    }
    Click(u"btn_集計検索"_s);
    EXPECT_EQ(Found(), everybody);
    Open(Names(), [](ModalRobot& user) {
        EXPECT_EQ(user.Text(u"担当者名"_s, 0), QString());
        EXPECT_EQ(user.Item(u"chb_絞込み"_s).Value(), 0);
        GoBack(user);
    });
    EXPECT_FALSE(Given(Names()));
}
