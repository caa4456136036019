#include <QApplication>

#include "globals/ProgramGlobals.h"
#include "mainform/ValueWindowsFixture.h"
#include "screen/Form.h"
#include "screen/modクライアント処理.h"

using namespace Qt::StringLiterals;

namespace {
const QColor kGreen(0, 192, 0);
const QColor kDarkBlue(0, 0, 128);
}  // namespace

TEST_F(ValueWindowsTest, ValuesTurnTheButtonGreenAndDisableTheItem) {
    Start();
    const QStringList next = {u"検索カナ"_s, u"検索住所"_s, u"検索電話"_s, u"検索郵便番号"_s, u"在籍区分"_s};
    for (size_t i = 0; i < 5; ++i) {
        const TextCondition& window = TextConditions()[i];
        Give(window, {window.valueDesign.classes == CharacterClass::Kana ? u"ｱ"_s : u"1"_s});
        EXPECT_TRUE(Given(window));
        EXPECT_EQ(Item(window.selection.button).ForeColor(), kGreen);
        EXPECT_TRUE(Item(window.selection.button).Enabled());
        EXPECT_FALSE(Item(window.item).Enabled());
        EXPECT_EQ(Focused(), next[static_cast<int>(i)]);
        Click(u"btn_画面クリア"_s);
    }
}

TEST_F(ValueWindowsTest, FocusPassesAllItemsThatValuesReplace) {
    Start();
    for (const size_t i : {4, 2, 3, 1}) Give(TextConditions()[i], {u"1"_s});
    Give(Kana(), {u"ｱ"_s});
    EXPECT_EQ(Focused(), u"在籍区分"_s);
    Give(Names(), {u"山"_s});
    EXPECT_EQ(Focused(), u"在籍区分"_s);
}

TEST_F(ValueWindowsTest, NoValuesLeaveTheItemInUseAndGiveItTheFocus) {
    Start();
    for (const TextCondition& window : TextConditions()) {
        Open(window, GoBack);
        EXPECT_FALSE(Given(window));
        EXPECT_EQ(Item(window.selection.button).ForeColor(), kDarkBlue);
        EXPECT_TRUE(Item(window.item).Enabled());
        EXPECT_EQ(Focused(), window.item);
    }
}

TEST_F(ValueWindowsTest, EveryWayOutWorksOutTheFlag) {
    const QList<ModalRobot::Callback> waysOut = {
        [](ModalRobot& user) { user.Click(u"btn_戻る"_s); },
        [](ModalRobot& user) { user.Press(Qt::Key_Escape); },
        [](ModalRobot& user) {
            user.Item(u"chb_絞込み"_s).SetFocus();
            user.Press(Qt::Key_Escape);
        },
        [](ModalRobot& user) {
            user.Item(u"btn_画面クリア"_s).SetFocus();
            user.Press(Qt::Key_Escape);
        },
        [](ModalRobot& user) { user.Dialog().close(); },
    };
    Start();
    for (const ModalRobot::Callback& leave : waysOut) {
        Open(Names(), [&leave](ModalRobot& user) {
            user.Type(u"山"_s);
            leave(user);
            EXPECT_FALSE(user.IsOpen());
        });
        EXPECT_TRUE(Given(Names()));
        EXPECT_EQ(Focused(), u"検索カナ"_s);
        Click(u"btn_画面クリア"_s);
    }
}

TEST_F(ValueWindowsTest, ClearedRowsTakeTheFlagBackOnlyWhenTheWindowCloses) {
    Start();
    Give(Names(), {u"山"_s});
    Open(Names(), [this](ModalRobot& user) {
        user.Click(u"btn_画面クリア"_s);
        EXPECT_EQ(user.Text(u"担当者名"_s, 0), QString());
        EXPECT_TRUE(Given(Names()));
        EXPECT_EQ(Item(u"btn_名称複数指定"_s).ForeColor(), kGreen);
        GoBack(user);
    });
    EXPECT_FALSE(Given(Names()));
    EXPECT_EQ(Item(u"btn_名称複数指定"_s).ForeColor(), kDarkBlue);
}

TEST_F(ValueWindowsTest, EntriesStayInTheHiddenWindowForTheNextOpening) {
    Start();
    Give(Names(), {u"山"_s, u"川"_s}, true);
    EXPECT_TRUE(IsFormLoaded(u"wnd担当者名複数指定"_s));
    Form* const first = LoadedForm(u"wnd担当者名複数指定"_s);
    Open(Names(), [&](ModalRobot& user) {
        EXPECT_EQ(&user.Dialog(), first);
        EXPECT_EQ(user.Text(u"担当者名"_s, 0), u"山"_s);
        EXPECT_EQ(user.Text(u"担当者名"_s, 1), u"川"_s);
        EXPECT_EQ(user.Item(u"chb_絞込み"_s).Value(), 1);
        EXPECT_EQ(user.Focused(), u"担当者名"_s);
        EXPECT_EQ(user.Dialog().ActiveControl()->Index(), 0);
        GoBack(user);
    });
    EXPECT_TRUE(Given(Names()));
}

TEST_F(ValueWindowsTest, MainFormStaysEnabledWhileAWindowIsOpen) {
    Start();
    Open(Names(), [this](ModalRobot& user) {
        EXPECT_TRUE(MainForm().Enabled());
        EXPECT_EQ(QApplication::activeModalWidget(), &user.Dialog());
        MainForm().SetEnabled(false);
        GoBack(user);
    });
    EXPECT_TRUE(MainForm().Enabled());
}

TEST_F(ValueWindowsTest, OpeningSetsResultAndNextItemOnly) {
    Start();
    Globals().ListCondition = u"M部門.コード >= '001'"_s;
    for (const TextCondition& window : TextConditions()) {
        Open(window, [&](ModalRobot& user) {
            EXPECT_EQ(Globals().ListResultItem, &Item(window.selection.button));
            EXPECT_EQ(Globals().ListNextItem, &Item(window.item));
            GoBack(user);
        });
    }
    EXPECT_EQ(Globals().ListCondition, u"M部門.コード >= '001'"_s);
}

TEST_F(ValueWindowsTest, ButtonsAreIgnoredWhileBusy) {
    Start();
    for (bool ProgramGlobals::*const flag : {&ProgramGlobals::ScreenPainting, &ProgramGlobals::LinkWaiting}) {
        Globals().*flag = true;
        for (const TextCondition& window : TextConditions()) {
            Click(window.selection.button);
            EXPECT_FALSE(IsFormLoaded(window.selection.window));
        }
        Globals().*flag = false;
    }
}

TEST_F(ValueWindowsTest, HalfTypedTextOfTheHeadIsAcceptedBeforeTheWindowOpens) {
    Start();
    Type(u"検索カナ"_s, u"ﾔﾏ"_s);
    Open(Names(), [](ModalRobot& user) {
        EXPECT_EQ(Globals().Conditions.SearchKana, u"ﾔﾏ"_s);
        GoBack(user);
    });
}

TEST_F(ValueWindowsTest, EachWindowLiesWholeOnALowScreen) {
    Start({}, 768);
    for (const TextCondition& window : TextConditions()) {
        Open(window, [](ModalRobot& user) {
            EXPECT_LE(user.Dialog().WindowHeight(), 768 * kTwipsPerPixel);
            EXPECT_LE(user.Dialog().width(), 1024);
            for (const Control* control : user.Dialog().Controls()) {
                const QWidget& widget = control->Widget();
                EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry())) << control->Name().toStdString();
            }
            GoBack(user);
        });
    }
}
