#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <QtTest/QTest>

#include "screen/PlainControls.h"
#include "screen/ScreenTest.h"

using namespace Qt::StringLiterals;

class FormFocus : public ScreenTest {
  protected:
    ThreeItems form;

    /// Shown and active, the focus on the first item, the event log empty.
    void Start() {
        ShowActive(form);
        form.first.SetFocus();
        form.Taken();
    }
};

TEST_F(FormFocus, SetFocusEmitsBothEventsBeforeTheWindowIsShown) {
    form.first.SetFocus();
    form.second.SetFocus();
    form.third.SetFocus();
    EXPECT_EQ(form.Taken(), u"+一 -一 +二 -二 +三"_s);
    EXPECT_EQ(form.ActiveControl(), &form.third);
}

TEST_F(FormFocus, SetFocusOnTheActiveItemEmitsNothing) {
    Start();
    form.first.SetFocus();
    EXPECT_EQ(form.Taken(), QString());
}

TEST_F(FormFocus, QtFocusFollows) {
    Start();
    form.second.SetFocus();
    EXPECT_EQ(QApplication::focusWidget(), &form.second);
}

TEST_F(FormFocus, FirstStopIsActiveWhenTheWindowComesUp) {
    ShowActive(form);
    EXPECT_EQ(form.Taken(), u"+一"_s);
    EXPECT_EQ(QApplication::focusWidget(), &form.first);
}

TEST_F(FormFocus, SetFocusWorksAfterAHiddenModalWindow) {
    Start();
    ThreeItems modal(u"一覧"_s);
    QString seen;
    QTimer::singleShot(0, &modal, [&] {
        modal.HideForm();
        form.second.SetFocus();
        form.third.SetFocus();
        seen = form.Taken();
    });
    modal.ShowModal();
    EXPECT_EQ(seen, u"-一 +二 -二 +三"_s);
    EXPECT_EQ(form.ActiveControl(), &form.third);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.focusWidget(), &form.third);
    EXPECT_EQ(form.Taken(), QString());
}

TEST_F(FormFocus, WindowActivationEmitsNothing) {
    Start();
    ThreeItems other(u"別"_s);
    ShowActive(other);
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QCoreApplication::processEvents();
    EXPECT_EQ(form.Taken(), QString());
    EXPECT_EQ(QApplication::focusWidget(), &form.first);
}

TEST_F(FormFocus, ActivationGivesNoItemTheFocusWhereNoneIsActive) {
    Start();
    form.SetEnabled(false);
    ThreeItems other(u"別"_s);
    ShowActive(other);
    form.SetEnabled(true);
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QCoreApplication::processEvents();
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_EQ(form.focusWidget(), nullptr);
    EXPECT_EQ(form.Taken(), QString());
}

TEST_F(FormFocus, MessageBoxEmitsNoFocusEvents) {
    Button button(form, form, u"確認"_s, u"確認"_s);
    button.setGeometry(200, 10, 80, 24);
    Start();
    int confirmations = 0;
    button.GotFocus = [&] {
        ++confirmations;
        QMessageBox box(&form);
        QTimer::singleShot(0, &box, &QMessageBox::accept);
        box.exec();
    };
    Click(button);
    EXPECT_EQ(form.Taken(), u"-一"_s);
    QApplication::setActiveWindow(&form);
    QCoreApplication::processEvents();
    EXPECT_EQ(confirmations, 1);
    EXPECT_EQ(form.ActiveControl(), &button);
}

TEST_F(FormFocus, PopUpOfAComboBoxAndContextMenuRaiseNothing) {
    ComboItem combo(form, form, u"区分"_s);
    combo.setGeometry(200, 10, 100, 24);
    combo.AddItem(u"甲"_s);
    form.Record(combo);
    Start();
    combo.SetFocus();
    form.Taken();
    combo.showPopup();
    QCoreApplication::processEvents();
    combo.hidePopup();
    QCoreApplication::processEvents();
    EXPECT_EQ(form.Taken(), QString());
    form.first.SetFocus();
    form.Taken();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(5, 5), form.first.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&form.first, &menu);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
    QCoreApplication::processEvents();
    EXPECT_EQ(form.Taken(), QString());
    EXPECT_EQ(form.ActiveControl(), &form.first);
}

TEST_F(FormFocus, DisablingTheFormDropsTheFocusSilently) {
    Start();
    form.SetEnabled(false);
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(form.Taken(), QString());
}

TEST_F(FormFocus, DisablingTheActiveItemDoesNotHopToItsNeighbour) {
    Start();
    form.first.SetEnabled(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(form.Taken(), QString());
}

TEST_F(FormFocus, DisablingOrHidingThePanelDropsTheFocus) {
    Start();
    form.second.SetFocus();
    form.Taken();
    form.panel.SetEnabled(false);
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_TRUE(form.second.Enabled());
    form.panel.SetEnabled(true);
    form.second.SetFocus();
    EXPECT_EQ(form.Taken(), u"+二"_s);
    form.panel.SetVisible(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
    EXPECT_TRUE(form.second.Visible());
    EXPECT_EQ(form.Taken(), QString());
}

TEST_F(FormFocus, EmitsGotFocusAgainAfterTheFormWasDisabled) {
    Start();
    form.SetEnabled(false);
    form.SetEnabled(true);
    form.first.SetFocus();
    EXPECT_EQ(form.Taken(), u"+一"_s);
}

TEST_F(FormFocus, DisabledFormOrItemTakesNoFocus) {
    Start();
    form.second.SetEnabled(false);
    form.second.SetFocus();
    form.panel.SetVisible(false);
    form.second.SetEnabled(true);
    form.second.SetFocus();
    form.panel.SetFocus();  // not an input item
    form.SetEnabled(false);
    form.third.SetFocus();
    EXPECT_EQ(form.Taken(), QString());
    EXPECT_EQ(form.ActiveControl(), nullptr);
}

TEST_F(FormFocus, ClickEmitsBothEventsAfterQtsFocusChange) {
    Start();
    const QWidget* focusAtEvent = nullptr;
    form.third.GotFocus = [&] { focusAtEvent = QApplication::focusWidget(); };
    Click(form.third);
    EXPECT_EQ(form.Taken(), u"-一"_s);
    EXPECT_EQ(focusAtEvent, &form.third);
    EXPECT_EQ(form.ActiveControl(), &form.third);
}

TEST_F(FormFocus, ScreenReaderEmitsBothEvents) {
    Start();
    QAccessible::queryAccessibleInterface(&form.third)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::setFocusAction());
    QCoreApplication::processEvents();
    EXPECT_EQ(form.Taken(), u"-一 +三"_s);
}

TEST_F(FormFocus, ScreenReaderFocusIsEmittedBeforeTheNextKey) {
    Start();
    form.third.setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(form.Taken(), QString());
    Type(form.third, u"x"_s);
    EXPECT_EQ(form.Taken(), u"-一 +三"_s);
    EXPECT_EQ(form.third.Text(), u"x"_s);
}

TEST_F(FormFocus, GotFocusThatSendsTheFocusOnWins) {
    Start();
    form.third.GotFocus = [&] {
        form.events << u"+三"_s;
        form.second.SetFocus();
    };
    Click(form.third);
    EXPECT_EQ(form.Taken(), u"-一 +三 -三 +二"_s);
    EXPECT_EQ(QApplication::focusWidget(), &form.second);
}

TEST_F(FormFocus, LostFocusThatMovesTheFocusWins) {
    Start();
    form.first.LostFocus = [&] {
        form.events << u"-一"_s;
        form.third.SetFocus();
    };
    form.second.SetFocus();
    EXPECT_EQ(form.Taken(), u"-一 +三"_s);
    EXPECT_EQ(form.ActiveControl(), &form.third);
    EXPECT_EQ(QApplication::focusWidget(), &form.third);
}

TEST_F(FormFocus, FormThatUnloadsItselfInAFocusHandlerIsDeletedLater) {
    auto* own = new ThreeItems(u"自分"_s);
    const QPointer<Form> watched(own);
    ShowActive(*own);
    own->third.GotFocus = [own] { own->UnloadForm(); };
    Click(own->third);
    EXPECT_TRUE(QTest::qWaitFor([&] { return watched.isNull(); }));
}

TEST_F(FormFocus, TabGoesThroughTheStopsInTheirOrderAndRoundAgain) {
    form.first.SetTabIndex(2);
    form.second.SetTabIndex(1);
    form.third.SetTabIndex(3);
    Start();
    PressInWindow(form, Qt::Key_Tab);
    PressInWindow(form, Qt::Key_Tab);
    PressInWindow(form, Qt::Key_Tab);
    EXPECT_EQ(form.Taken(), u"-一 +三 -三 +二 -二 +一"_s);
    PressInWindow(form, Qt::Key_Backtab, Qt::ShiftModifier);
    PressInWindow(form, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(form.Taken(), u"-一 +二 -二 +三"_s);
}

TEST_F(FormFocus, TabPassesOverWhatIsDisabledHiddenOrNoStop) {
    Start();
    form.second.SetTabStop(false);
    PressInWindow(form, Qt::Key_Tab);
    EXPECT_EQ(form.Taken(), u"-一 +三"_s);
    form.second.SetTabStop(true);
    form.panel.SetEnabled(false);
    PressInWindow(form, Qt::Key_Tab);
    EXPECT_EQ(form.Taken(), u"-三 +一"_s);
    form.third.SetVisible(false);
    PressInWindow(form, Qt::Key_Tab);
    EXPECT_EQ(form.Taken(), QString());
}

TEST_F(FormFocus, TabBeginsAtTheFirstStopWhereNothingIsActive) {
    Start();
    form.third.SetFocus();
    form.third.SetEnabled(false);
    form.Taken();
    PressInWindow(form, Qt::Key_Tab);
    EXPECT_EQ(form.Taken(), u"+一"_s);
}

TEST_F(FormFocus, EnterInAnInputItemMovesOnLikeTab) {
    Start();
    PressInWindow(form, Qt::Key_Return);
    PressInWindow(form, Qt::Key_Enter);
    EXPECT_EQ(form.Taken(), u"-一 +二 -二 +三"_s);
}
