#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QtTest/QTest>
#include <algorithm>

#include "screen/ScreenTest.h"
#include "screen/modクライアント処理.h"

using namespace Qt::StringLiterals;

class FormWindow : public ScreenTest {};

TEST_F(FormWindow, LoadRunsOnceBeforeTheWindowIsShownFirst) {
    ThreeItems form;
    QStringList seen;
    form.Load = [&] { seen << (form.isVisible() ? u"shown"_s : u"hidden"_s); };
    form.ShowModeless();
    form.HideForm();
    form.ShowModeless();
    EXPECT_EQ(seen, QStringList(u"hidden"_s));
}

TEST_F(FormWindow, ErrorInLoadPropagatesAndNothingIsShown) {
    ThreeItems form;
    form.Load = [] { throw 1; };
    EXPECT_THROW(form.ShowModal(), int);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FormWindow, ShowModalReturnsWhenTheWindowIsHiddenAndValuesStay) {
    ThreeItems form;
    QTimer::singleShot(0, &form, [&] {
        form.first.SetText(u"値"_s);
        form.HideForm();
    });
    form.ShowModal();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.first.Text(), u"値"_s);
    EXPECT_TRUE(IsFormLoaded(u"三項目"_s));
}

TEST_F(FormWindow, ModalWindowThatLoadTakesAwayAgainDoesNotWait) {
    ThreeItems form;
    int moves = 0;
    form.first.GotFocus = [&] {
        ++moves;
        form.HideForm();
    };
    form.ShowModal();
    EXPECT_EQ(moves, 1);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FormWindow, UnloadEndsShowModalRunsUnloadOnceAndDeletesLater) {
    auto* form = new ThreeItems(u"消える"_s);
    const QPointer<Form> watched(form);
    int unloads = 0;
    form->Unload = [&] {
        ++unloads;
        form->UnloadForm();
    };
    form->third.GotFocus = [form] { form->UnloadForm(); };
    QTimer::singleShot(0, form, [form] { QTest::mouseClick(&form->third, Qt::LeftButton); });
    form->ShowModal();
    EXPECT_EQ(unloads, 1);
    EXPECT_FALSE(IsFormLoaded(u"消える"_s));
    EXPECT_TRUE(QTest::qWaitFor([&] { return watched.isNull(); }));
}

TEST_F(FormWindow, ModalWindowKeepsInputFromTheOthers) {
    ThreeItems below;
    ShowActive(below);
    ThreeItems modal(u"前"_s);
    bool blocked = false;
    QTimer::singleShot(0, &modal, [&] {
        blocked = QApplication::activeModalWidget() == &modal;
        modal.HideForm();
    });
    modal.ShowModal();
    EXPECT_TRUE(blocked);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(FormWindow, HiddenWindowBeginsAtItsFirstStopWhenItIsShownAgain) {
    ThreeItems form;
    form.ShowModeless();
    form.third.SetFocus();
    form.HideForm();
    form.Taken();
    form.ShowModeless();
    EXPECT_EQ(form.Taken(), u"+一"_s);
}

TEST_F(FormWindow, DeletedControlIsForgotten) {
    ThreeItems form;
    auto* more = new InputItem(form, form, u"xField"_s, u"四"_s, -1, {});
    form.ShowModeless();
    more->SetFocus();
    delete more;
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_EQ(form.Find(u"四"_s), nullptr);
    EXPECT_EQ(form.Controls().size(), 4U);
}

TEST_F(FormWindow, ControlsKeepTheOrderInWhichTheyWereMade) {
    ThreeItems form;
    QStringList names;
    for (const Control* control : form.Controls()) names << control->Name();
    EXPECT_EQ(names, (QStringList{u"台"_s, u"一"_s, u"二"_s, u"三"_s}));
    EXPECT_LT(form.first.TabIndex(), form.second.TabIndex());
}

TEST_F(FormWindow, PlacesAndSizesAreTwips) {
    ThreeItems form;
    EXPECT_EQ(form.second.Left(), 150);  // relative to its panel
    EXPECT_EQ(form.second.Top(), 150);
    EXPECT_EQ(form.second.Width(), 1500);
    EXPECT_EQ(form.second.Height(), 360);
    form.second.SetTop(75);
    form.second.SetHeight(450);
    EXPECT_EQ(form.second.geometry(), QRect(10, 5, 100, 30));
}

TEST_F(FormWindow, WindowAsHighAsTheScreenLeavesSpaceForTheLargestFrame) {
    ThreeItems form;
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const int highest = screen.height() - 40;
    form.setFixedSize(300, highest);
    form.ShowModeless();
    EXPECT_GE(form.y(), screen.top());
    EXPECT_LE(form.y(), screen.top() + 1);
}
