#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QtTest/QTest>
#include <tuple>

#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffQuery.h"
#include "mainform/frm要員名簿照会.h"
#include "screen/Form.h"
#include "support/MainFormFixture.h"

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

TEST_F(HeadTest, EmptyEndEmptiesItsStartAndRedirectsTheFocus) {
    Start();
    for (const bool rows : {true, false}) {
        if (!rows) Click(u"btn_画面クリア"_s);
        ASSERT_EQ(Globals().LastRow >= 0, rows);
        Type(u"終了部門コード"_s, QString());
        Click(u"開始セクションコード"_s);
        EXPECT_EQ(Globals().Conditions.DepartmentFrom, QString());
        EXPECT_EQ(Globals().Conditions.DepartmentTo, QString());
        EXPECT_EQ(Item(u"開始部門コード"_s).Text(), QString());
        EXPECT_EQ(Item(u"終了部門コード"_s).Text(), QString());
        EXPECT_EQ(Focused(), u"終了部門コード"_s);
        // They depend on the rows, not on the head.
        for (const QString& button : {u"btn_印刷"_s, u"btn_プレビュ"_s, u"btn_テキスト出力"_s, u"btn_封筒"_s,
                                      u"btn_はがき"_s, u"btn_宛名ラベル"_s})
            EXPECT_EQ(Item(button).Enabled(), rows) << button.toStdString();
    }
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
    for (const KindCondition& kind : KindConditions()) {
        const auto state = [&] {
            return std::tuple(Globals().Conditions.*kind.field, Item(kind.item).Value(),
                              Item(kind.listItem).ListIndex(), Item(kind.listItem).Text(), BuildStaffStatement());
        };
        Type(kind.item, u"0"_s);
        const auto first = state();
        Type(kind.item, u"1"_s);
        const auto byDigit = state();
        EXPECT_EQ(std::get<0>(byDigit), 1);
        EXPECT_NE(byDigit, first);
        Type(kind.item, u"0"_s);
        Item(kind.listItem).SetFocus();
        Press(Qt::Key_Down);
        EXPECT_EQ(state(), byDigit) << kind.item.toStdString();
        Press(Qt::Key_Up);
        EXPECT_EQ(state(), first);
        auto& list = dynamic_cast<QComboBox&>(Item(kind.listItem).FocusWidget());
        list.showPopup();
        QTest::keyClick(list.view(), Qt::Key_Down);
        QTest::keyClick(list.view(), Qt::Key_Return);
        EXPECT_EQ(state(), byDigit) << kind.item.toStdString();
    }
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

TEST_F(HeadTest, NoticeOfATextThatWasTooLongGoesWhenTheTextIsCut) {
    Start();
    for (const QString& item : {u"検索名称"_s, u"検索住所"_s, u"検索カナ"_s}) {
        Item(item).SetFocus();
        Item(item).SetText(QString(25, u'あ'));
        ASSERT_NE(Item(u"お知らせ"_s).Caption(), QString()) << item.toStdString();
        Press(Qt::Key_Tab);
        EXPECT_LT(Item(item).Text().size(), 25);
        EXPECT_EQ(Item(u"お知らせ"_s).Caption(), QString()) << item.toStdString();
    }
}

TEST_F(HeadTest, NoticeOfATextThatIsStoredUncutStays) {
    Start();
    Item(u"検索電話"_s).SetFocus();
    Item(u"検索電話"_s).SetText(u"０３０３０３０３０３"_s);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Item(u"お知らせ"_s).Caption(), u"2文字オーバーです。"_s);
}

TEST_F(HeadTest, TwentyFullWidthCharactersCanBeTypedAndTheNoticeCountsTen) {
    Start();
    Type(u"検索名称"_s, QString(25, u'あ'));
    EXPECT_EQ(Item(u"検索名称"_s).Text(), QString(20, u'あ'));
    EXPECT_EQ(Item(u"お知らせ"_s).Caption(), u"10文字オーバーです。"_s);
}

TEST_F(HeadTest, ItemsLimitCharactersAndLength) {
    struct Case {
        QString item, entered, taken;
    };
    const QString mixed = u"山１ｱ a-1"_s + QString(20, u'2');
    QList<Case> cases = {{u"検索電話"_s, mixed, u"1ｱ a-1"_s + QString(10, u'2')},
                         {u"検索郵便番号"_s, mixed, u"1ｱ a-122"_s},
                         {u"検索名称"_s, mixed, u"山１ｱ a-1"_s + QString(13, u'2')},
                         {u"検索住所"_s, QString(50, u'山'), QString(40, u'山')},
                         {u"検索カナ"_s, QString(25, u'ｱ'), QString(20, u'ｱ')}};
    const QString digits[] = {u"112"_s, u"112"_s, u"11"_s, u"11234"_s};
    for (size_t range = 0; range < std::size(digits); ++range)
        for (const QString& item : {RangeConditions()[range].fromItem, RangeConditions()[range].toItem})
            cases.append({item, u"山a１-1234567"_s, digits[range]});
    Start();
    for (const Case& c : cases) {
        Type(c.item, c.entered);
        EXPECT_EQ(Item(c.item).Text(), c.taken) << c.item.toStdString();
        Type(c.item, QString());
        QApplication::clipboard()->setText(c.entered);
        // Not Ctrl+V: Ctrl alone opens a lookup in a code item.
        QTest::keyClick(&Item(c.item).FocusWidget(), Qt::Key_Insert, Qt::ShiftModifier);
        EXPECT_EQ(Item(c.item).Text(), c.taken) << c.item.toStdString() << " pasted";
    }
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

TEST_F(HeadTest, SelectionTurnsItsButtonGreenAndMovesTheFocusOn) {
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

TEST_F(HeadTest, LeavingARangeItemRepaintsTheHeadOnly) {
    Start();
    const QString statement = BuildStaffStatement();
    Item(u"担当者名"_s, 0).SetText(u"not repainted"_s);
    for (const RangeCondition& range : RangeConditions()) {
        for (const QString& item : {range.fromItem, range.toItem}) {
            Click(item);
            Item(u"検索郵便番号"_s).SetText(u"7"_s);
            Press(Qt::Key_Tab);
            EXPECT_EQ(Item(u"検索郵便番号"_s).Text(), QString()) << item.toStdString();
            EXPECT_EQ(Item(u"担当者名"_s, 0).Text(), u"not repainted"_s) << item.toStdString();
        }
    }
    EXPECT_EQ(BuildStaffStatement(), statement);
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
