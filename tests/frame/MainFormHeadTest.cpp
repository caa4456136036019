#include <QtTest/QTest>

#include "frame/MainFormFixture.h"
#include "frame/ProgramGlobals.h"
#include "inquiry/DetailList.h"
#include "inquiry/ScreenState.h"
#include "mainform/frm要員名簿照会.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

namespace {
const QColor kGreen(0, 192, 0);
const QColor kDarkBlue(0, 0, 128);

frm要員名簿照会& Window() { return static_cast<frm要員名簿照会&>(*Globals().MainForm); }
}  // namespace

using HeadTest = MainFormTest;

TEST_F(HeadTest, CodeItemShowsItsPaddedCodeAsSoonAsItIsLeft) {
    Start();
    Enter(u"開始役職コード"_s, u"1"_s);
    EXPECT_EQ(Item(u"開始役職コード"_s).Text(), u"01"_s);
    EXPECT_EQ(Globals().Conditions.PositionFrom, u"01"_s);
}

TEST_F(HeadTest, BoundJustTypedDragsTheOtherAlong) {
    Start();
    Enter(u"終了部門コード"_s, u"100"_s);
    Enter(u"開始部門コード"_s, u"500"_s);
    EXPECT_EQ(Item(u"終了部門コード"_s).Text(), u"500"_s);
    Enter(u"終了部門コード"_s, u"200"_s);
    EXPECT_EQ(Item(u"開始部門コード"_s).Text(), u"200"_s);
}

TEST_F(HeadTest, ClearedEndEmptiesItsStartAndDrawsTheFocusBackFromTheSections) {
    Start();
    ASSERT_TRUE(Item(u"btn_印刷"_s).Enabled());
    Type(u"終了部門コード"_s, QString());
    Click(u"開始セクションコード"_s);
    EXPECT_EQ(Globals().Conditions.DepartmentFrom, QString());
    EXPECT_EQ(Globals().Conditions.DepartmentTo, QString());
    EXPECT_EQ(Focused(), u"終了部門コード"_s);
    EXPECT_TRUE(Item(u"btn_印刷"_s).Enabled());  // follows the rows, not the head
}

TEST_F(HeadTest, ReachOfTheFocusCheckDiffersFromItemToItem) {
    struct Row {
        QString item;
        QList<int> sentBackBy;  // 1 department, 2 section, 3 position, 4 staff end missing
    };
    const QList<Row> rows = {
        {u"検索名称"_s, {}},
        {u"検索カナ"_s, {}},
        {u"検索住所"_s, {}},
        {u"検索電話"_s, {}},
        {u"検索郵便番号"_s, {}},
        {u"開始部門コード"_s, {}},
        {u"終了部門コード"_s, {}},
        {u"開始セクションコード"_s, {1}},
        {u"終了セクションコード"_s, {1}},
        {u"開始役職コード"_s, {1}},
        {u"終了役職コード"_s, {1}},
        {u"開始担当者コード"_s, {1, 2}},
        {u"終了担当者コード"_s, {1, 2}},
        {u"在籍区分"_s, {1, 2, 3}},
        {u"社員区分"_s, {1, 2, 3}},
        {u"表示順区分"_s, {1, 2, 3}},
    };
    const QStringList ends = {u"終了部門コード"_s, u"終了セクションコード"_s, u"終了役職コード"_s,
                              u"終了担当者コード"_s};
    QString InquiryConditions::*const fields[] = {&InquiryConditions::DepartmentTo, &InquiryConditions::SectionTo,
                                                  &InquiryConditions::PositionTo, &InquiryConditions::StaffTo};
    Start();
    for (const Row& row : rows) {
        for (int missing = 1; missing <= 4; ++missing) {
            const InquiryConditions kept = Globals().Conditions;
            Item(u"検索名称"_s).SetFocus();
            Item(u"検索カナ"_s).SetFocus();
            Globals().Conditions.*fields[missing - 1] = QString();
            Item(row.item).SetFocus();
            const QString expected = row.sentBackBy.contains(missing) ? ends[missing - 1] : row.item;
            EXPECT_EQ(Focused(), expected) << row.item.toStdString() << " with " << missing << " missing";
            Globals().Conditions = kept;
            PaintHeadItems();
        }
    }
}

TEST_F(HeadTest, KindByListAndKindByDigitGiveTheSameState) {
    Start();
    Type(u"在籍区分"_s, u"1"_s);
    EXPECT_EQ(Globals().Conditions.EnrolmentKind, 1);
    EXPECT_EQ(Item(u"在籍区分名称"_s).ListIndex(), 1);
    Click(u"在籍区分名称"_s);
    Item(u"在籍区分名称"_s).SetListIndex(0);
    EXPECT_EQ(Globals().Conditions.EnrolmentKind, 0);
    EXPECT_EQ(Item(u"在籍区分"_s).Value(), 0);
}

TEST_F(HeadTest, LastKindIsAllAndAddsNoCondition) {
    Start();
    const int all = Item(u"在籍区分"_s).MaxValue();
    Item(u"在籍区分"_s).SetValue(all);
    Click(u"btn_集計検索"_s);
    EXPECT_FALSE(History().last().contains(u"M担当者.在籍区分 = "_s)) << History().last().toStdString();
    EXPECT_EQ(Item(u"在籍区分名称"_s).ListIndex(), all);
}

TEST_F(HeadTest, OrderTakesFiveWithoutAListEntry) {
    Start();
    Type(u"表示順区分"_s, u"5"_s);
    EXPECT_EQ(Globals().Conditions.DisplayOrder, 5);
    EXPECT_EQ(Item(u"表示順区分名称"_s).ListIndex(), -1);
    Press(Qt::Key_6);
    EXPECT_EQ(Globals().Conditions.DisplayOrder, 5);
}

TEST_F(HeadTest, NoticeCountsTheCharactersThatAreTooMany) {
    Start();
    Type(u"検索名称"_s, u"あいうえおかきくけこさし"_s);
    EXPECT_EQ(Item(u"お知らせ"_s).Caption(), u"2文字オーバーです。"_s);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Globals().Conditions.SearchName, u"あいうえおかきくけこ"_s);
}

TEST_F(HeadTest, TwentyFullWidthCharactersCanBeTypedAndTheNoticeCountsTen) {
    Start();
    Type(u"検索名称"_s, QString(25, u'あ'));
    EXPECT_EQ(Item(u"検索名称"_s).Text(), QString(20, u'あ'));
    EXPECT_EQ(Item(u"お知らせ"_s).Caption(), u"10文字オーバーです。"_s);
}

TEST_F(HeadTest, TelephoneAndPostalCodeAreStoredUncut) {
    Start();
    Item(u"検索電話"_s).SetFocus();
    Item(u"検索電話"_s).SetText(u"０３０３０３０３０３０３０３０３"_s);
    Item(u"検索カナ"_s).SetFocus();
    EXPECT_EQ(Globals().Conditions.SearchPhone, u"０３０３０３０３０３０３０３０３"_s);
}

TEST_F(HeadTest, SectionButtonIsCaptionedUnlikeItsNeighbours) {
    Start();
    EXPECT_EQ(Item(u"btn_部門個別選択"_s).Caption(), u"部門コード範囲"_s);
    EXPECT_EQ(Item(u"btn_セクション個別選択"_s).Caption(), u"所属コード範囲"_s);
    EXPECT_EQ(Item(u"btn_役職個別選択"_s).Caption(), u"役職コード範囲"_s);
    EXPECT_EQ(Item(u"btn_担当者個別選択"_s).Caption(), u"担当者コード範囲"_s);
}

TEST_F(HeadTest, GivenSelectionTurnsItsButtonGreenAndTheFocusGoesToTheNextItem) {
    Start();
    Globals().Flags.NameListGiven = true;
    RefreshScreen();
    Window().MoveFocus(Item(u"検索名称"_s));
    EXPECT_EQ(Item(u"btn_名称複数指定"_s).ForeColor(), kGreen);
    EXPECT_TRUE(Item(u"btn_名称複数指定"_s).Enabled());
    EXPECT_FALSE(Item(u"検索名称"_s).Enabled());
    EXPECT_EQ(Focused(), u"検索カナ"_s);
}

TEST_F(HeadTest, ClearTakesSelectionsBack) {
    Start();
    Globals().Flags.DepartmentPicked = true;
    RefreshScreen();
    ASSERT_EQ(Item(u"btn_部門個別選択"_s).ForeColor(), kGreen);
    Click(u"btn_画面クリア"_s);
    EXPECT_EQ(Item(u"btn_部門個別選択"_s).ForeColor(), kDarkBlue);
    EXPECT_TRUE(Item(u"開始部門コード"_s).Enabled());
    EXPECT_TRUE(Item(u"終了部門コード"_s).Enabled());
}

TEST_F(HeadTest, LeavingARangeItemRepaintsTheHeadAlsoUnchangedAndLeavesTheRows) {
    Start();
    Item(u"担当者名"_s, 0).SetText(u"not repainted"_s);
    Click(u"開始部門コード"_s);
    Item(u"終了役職コード"_s).SetText(u"7"_s);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Item(u"終了役職コード"_s).Text(), u"99"_s);
    EXPECT_EQ(Item(u"担当者名"_s, 0).Text(), u"not repainted"_s);
}

TEST_F(HeadTest, ClearTakesTheRangesOfAStartCommandAwayAndKeepsItsOffice) {
    Start(u"001010020"_s + u"000999"_s + u"0099"_s + u"0000099999"_s);
    ASSERT_EQ(Globals().Conditions.DepartmentFrom, u"010"_s);
    Click(u"btn_画面クリア"_s);
    EXPECT_EQ(Globals().Conditions.DepartmentFrom, u"000"_s);
    EXPECT_EQ(Globals().Conditions.DepartmentTo, u"999"_s);
    EXPECT_EQ(Globals().ScopeOfficeCode, u"001"_s);
}

TEST_F(HeadTest, ClearTakesMaxValueWhereTheStartTakesNine) {
    installation.General().Execute(u"DELETE FROM K社員区分"_s);
    Start();
    Globals().Conditions.StaffClass = 9;
    Click(u"btn_画面クリア"_s);
    EXPECT_EQ(Globals().Conditions.StaffClass, 0);
    EXPECT_EQ(Item(u"社員区分名称"_s).ListIndex(), 0);
}

TEST_F(HeadTest, TitleOfAClassItemValidatesAndGoesToTheItem) {
    Start();
    Click(u"itm_ttl_社員区分"_s);
    EXPECT_EQ(Focused(), u"社員区分"_s);
    Globals().Conditions.StaffTo.clear();
    Click(u"itm_ttl_表示順区分"_s);
    EXPECT_EQ(Focused(), u"終了担当者コード"_s);
}

TEST_F(HeadTest, HeadEndValidatesAndMovesNothing) {
    Start();
    Item(u"ヘッド終了"_s).SetFocus();
    EXPECT_EQ(Focused(), u"ヘッド終了"_s);
    Globals().Conditions.PositionTo.clear();
    Press(Qt::Key_F2);
    EXPECT_EQ(Focused(), u"終了役職コード"_s);
}
