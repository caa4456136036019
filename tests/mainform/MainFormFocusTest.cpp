#include <QTabBar>
#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "inquiry/SearchConditions.h"
#include "screen/Form.h"
#include "support/FocusMarks.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kStops = {u"検索名称"_s,
                            u"検索カナ"_s,
                            u"検索住所"_s,
                            u"検索電話"_s,
                            u"検索郵便番号"_s,
                            u"在籍区分"_s,
                            u"在籍区分名称"_s,
                            u"社員区分"_s,
                            u"社員区分名称"_s,
                            u"開始部門コード"_s,
                            u"終了部門コード"_s,
                            u"開始セクションコード"_s,
                            u"終了セクションコード"_s,
                            u"開始役職コード"_s,
                            u"終了役職コード"_s,
                            u"開始担当者コード"_s,
                            u"終了担当者コード"_s,
                            u"表示順区分"_s,
                            u"表示順区分名称"_s,
                            u"btn_集計検索"_s,
                            u"btn_画面クリア"_s,
                            u"btn_名称複数指定"_s,
                            u"btn_カナ複数指定"_s,
                            u"btn_住所複数指定"_s,
                            u"btn_電話複数指定"_s,
                            u"btn_郵便番号複数指定"_s,
                            u"btn_部門個別選択"_s,
                            u"btn_セクション個別選択"_s,
                            u"btn_役職個別選択"_s,
                            u"btn_担当者個別選択"_s,
                            u"ヘッド終了"_s,
                            u"tab_詳細"_s,
                            u"btn_印刷"_s,
                            u"btn_プレビュ"_s,
                            u"btn_テキスト出力"_s,
                            u"btn_封筒"_s,
                            u"btn_はがき"_s,
                            u"btn_宛名ラベル"_s,
                            u"btn_終了"_s};

}  // namespace

using MainFormFocus = MainFormTest;

TEST_F(MainFormFocus, TabVisitsTheItemsInTheOrderOfTheScreen) {
    Start();
    QStringList visited;
    for (qsizetype i = 0; i < kStops.size(); ++i) {
        visited << Focused();
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(visited, kStops);
    EXPECT_EQ(Focused(), kStops.first());
}

TEST_F(MainFormFocus, EveryStopShowsThatItHasTheFocus) {
    const SuiteLook look;
    Start();
    EXPECT_EQ(ExpectFocusMarks(MainForm()), kStops);
}

TEST_F(MainFormFocus, ScrollBarThatWasClickedShowsThatItHasTheFocus) {
    const SuiteLook look;
    Start();
    QApplication::setActiveWindow(&MainForm());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&MainForm()));
    const QWidget& bar = Item(u"scl_行"_s).Widget();
    EXPECT_TRUE(ShowsFocus(
        MainForm(), bar.geometry(), [this] { Item(u"scl_行"_s).SetFocus(); },
        [this] { Item(u"検索名称"_s).SetFocus(); }));
}

TEST_F(MainFormFocus, FullStartCommandOfBlanksLeavesNoItemThatRefusesTyping) {
    Start(u"000000999000999009900000"_s + u"99999"_s + QString(150, u' ') + u"1"_s);
    for (const TextCondition& text : TextConditions()) {
        ASSERT_EQ(Globals().Conditions.*text.field, QString(30, u' ')) << text.item.toStdString();
        Click(text.item);
        Click(text.item);
        Hands().TypeText(u"1"_s);
        EXPECT_EQ(Item(text.item).Text(), u"1"_s) << text.item.toStdString();
    }
}

TEST_F(MainFormFocus, ClickAfterAPaddedTextOfTheStartCommandLetsItBeContinued) {
    Start(u"000000999000999009900000"_s + u"99999"_s + u"山"_s.leftJustified(30) + QString(120, u' ') + u"1"_s);
    ASSERT_EQ(Item(u"検索名称"_s).Text(), u"山"_s.leftJustified(30));
    Click(u"検索名称"_s);
    Click(u"検索名称"_s);
    Hands().TypeText(u"田"_s);
    EXPECT_EQ(Item(u"検索名称"_s).Text(), u"山田"_s);
}
