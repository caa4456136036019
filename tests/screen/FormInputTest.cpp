#include <QApplication>
#include <QPointer>
#include <QPointingDevice>
#include <QTimer>
#include <QTouchEvent>
#include <QtTest/QTest>

#include "platform/RuntimeError.h"
#include "screen/PlainControls.h"
#include "screen/ScreenTest.h"

using namespace Qt::StringLiterals;

class FormInput : public ScreenTest {
  protected:
    ThreeItems form;
    Button button{form, form, u"釦"_s, u"釦"_s};

    void SetUp() override {
        button.setGeometry(200, 10, 80, 24);
        ShowActive(form);
    }
};

TEST_F(FormInput, DisabledFormTakesNoInput) {
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    form.panel.Click = [&] { ++clicks; };
    form.SetEnabled(false);
    Click(button);
    Click(form.panel);
    Click(form.first);
    Type(form.first, u"x"_s);
    Commit(form.first, u"あ"_s);
    PressInWindow(form, Qt::Key_Tab);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5), form.first.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&form.first, &menu);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    form.first.setAttribute(Qt::WA_AcceptTouchEvents);
    QTouchEvent touch(QEvent::TouchBegin, QPointingDevice::primaryPointingDevice());
    touch.ignore();
    EXPECT_TRUE(QApplication::sendEvent(&form.first, &touch));
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(form.first.Text(), QString());
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_EQ(form.focusWidget(), nullptr);
}

TEST_F(FormInput, DisabledFormGreysNothing) {
    form.SetEnabled(false);
    EXPECT_TRUE(button.isEnabled());
    EXPECT_TRUE(form.first.isEnabled());
    EXPECT_TRUE(button.Enabled());
}

TEST_F(FormInput, CloseBoxWorksOnADisabledFormAndLeavesTheFormAsItIs) {
    int closings = 0;
    form.Closing = [&] { ++closings; };
    form.SetEnabled(false);
    form.close();
    EXPECT_EQ(closings, 1);
    EXPECT_TRUE(form.isVisible());
}

TEST_F(FormInput, ClickOnADisabledItemDoesNotReachItsPanel) {
    int clicks = 0;
    form.panel.Click = [&] { ++clicks; };
    form.second.Click = [&] { ++clicks; };
    form.second.SetEnabled(false);
    Click(form.second);
    EXPECT_EQ(clicks, 0);
    Click(form.panel);
    EXPECT_EQ(clicks, 1);
}

TEST_F(FormInput, DisabledPanelTakesNoClick) {
    int clicks = 0;
    form.panel.Click = form.second.Click = [&] { ++clicks; };
    form.panel.SetEnabled(false);
    Click(form.panel);
    Click(form.second);
    EXPECT_EQ(clicks, 0);
}

TEST_F(FormInput, PressIsDiscardedIfAFocusHandlerDisablesTheForm) {
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    button.GotFocus = [&] { form.SetEnabled(false); };
    Click(button);
    EXPECT_EQ(clicks, 0);
}

TEST_F(FormInput, UncaughtErrorIsShown) {
    const auto fail = [] { throw platform::RuntimeError(94, u"Null の使い方が不正です。"_s); };
    button.Click = fail;
    form.first.Change = fail;
    form.second.GotFocus = fail;
    form.third.KeyDown = [&](int) { fail(); };
    Click(button);
    EXPECT_EQ(services.dialogs.Texts(), QStringList(u"Null の使い方が不正です。"_s));
    Click(form.first);
    Type(form.first, u"x"_s);
    Click(form.second);
    Click(form.third);
    Press(form.third, Qt::Key_F5);
    EXPECT_EQ(services.dialogs.shown.size(), 4);
}

TEST_F(FormInput, ErrorInAWritePropagatesToTheCaller) {
    form.first.Change = [] { throw platform::RuntimeError(1, u"中"_s); };
    form.second.GotFocus = [] { throw platform::RuntimeError(1, u"中"_s); };
    bool reached = false;
    button.Click = [&] {
        EXPECT_THROW(form.second.SetFocus(), platform::RuntimeError);
        form.first.SetText(u"x"_s);
        reached = true;
    };
    Click(button);
    EXPECT_FALSE(reached);
    EXPECT_EQ(services.dialogs.Texts(), QStringList(u"中"_s));
}

TEST_F(FormInput, ErrorInsideAModalLoopEndsThereAndNotInTheWorkAround) {
    ThreeItems modal(u"内"_s);
    Button inner(modal, modal, u"内釦"_s, u"内"_s);
    inner.Click = [] { throw platform::RuntimeError(1, u"内"_s); };
    QTimer::singleShot(0, &modal, [&] {
        Click(inner);
        modal.HideForm();
    });
    bool reached = false;
    button.Click = [&] {
        modal.ShowModal();
        reached = true;
    };
    Click(button);
    EXPECT_TRUE(reached);
    EXPECT_EQ(services.dialogs.Texts(), QStringList(u"内"_s));
}

TEST_F(FormInput, ControlAloneIsKeySeventeenOnceForEachPress) {
    QList<int> keys;
    form.first.KeyDown = [&](int key) { keys << key; };
    form.first.SetFocus();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Control, Qt::ControlModifier);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Control, Qt::ControlModifier, QString(), true);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Control, Qt::NoModifier);
    QApplication::sendEvent(&form.first, &press);
    QApplication::sendEvent(&form.first, &held);
    QApplication::sendEvent(&form.first, &held);
    EXPECT_EQ(keys, QList<int>{17});
    QApplication::sendEvent(&form.first, &release);
    QApplication::sendEvent(&form.first, &press);
    EXPECT_EQ(keys, (QList<int>{17, 17}));
    QKeyEvent withShift(QEvent::KeyPress, Qt::Key_Control, Qt::ControlModifier | Qt::ShiftModifier);
    QApplication::sendEvent(&form.first, &withShift);
    EXPECT_EQ(keys.size(), 2);
}

TEST_F(FormInput, KeyDownComesOnceAlsoWhereTheItemLeavesTheKeyOver) {
    QList<int> keys;
    form.second.KeyDown = [&](int key) { keys << key; };
    form.second.SetFocus();
    for (const int key : {Qt::Key_F1, Qt::Key_Escape, Qt::Key_A, Qt::Key_Return}) Press(form.second, key);
    EXPECT_EQ(keys, (QList<int>{112, 27, 65, 13}));
}

TEST_F(FormInput, EscapeAnywhereInTheWindowIsTheFormsOwn) {
    int escapes = 0;
    form.EscapePressed = [&] { ++escapes; };
    form.second.SetFocus();
    PressInWindow(form, Qt::Key_Escape);
    form.second.SetEnabled(false);
    PressInWindow(form, Qt::Key_Escape);
    EXPECT_EQ(escapes, 2);
}

TEST_F(FormInput, KeyReachesOnlyTheActiveControl) {
    int keys = 0;
    form.third.KeyDown = [&](int) { ++keys; };
    form.first.SetFocus();
    Type(form.third, u"x"_s);
    EXPECT_EQ(form.third.Text(), QString());
    EXPECT_EQ(keys, 0);
}

TEST_F(FormInput, UnknownItemOfAFormIsAnError) {
    EXPECT_EQ(&form.Item(u"二"_s), &form.second);
    EXPECT_THROW(form.Item(u"四"_s), platform::RuntimeError);
    EXPECT_EQ(form.Find(u"四"_s), nullptr);
}

TEST_F(FormInput, PropertyThatAClassLacksIsAnError) {
    try {
        button.SetValue(1);
        FAIL() << "a button has no Value";
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.Number(), platform::kPropertyNotSupported);
    }
}
