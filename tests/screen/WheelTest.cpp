#include <QtTest/QTest>

#include "platform/RuntimeError.h"
#include "screen/InputItem.h"
#include "screen/Labels.h"
#include "screen/PlainControls.h"
#include "screen/ScreenTest.h"
#include "screen/modマウスWHeel.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QPoint kTowardsUser(0, -120);
constexpr QPoint kAway(0, 120);
constexpr quint64 kNow = 5000;  // milliseconds, time stamps of the events

/// Counts the wheel events that reach the form after the hook.
class CountingForm : public Form {
  public:
    using Form::Form;
    int wheels = 0;

  protected:
    void wheelEvent(QWheelEvent* event) override {
        ++wheels;
        QWidget::wheelEvent(event);
    }
};

}  // namespace

class WheelHook : public ScreenTest {
  protected:
    CountingForm form{u"frm要員名簿照会"_s};
    ScrollItem bar{form, form, u"scl_行"_s};
    DisplayItem item{form, form, u"xField"_s, u"担当者名"_s, 0};
    NumItem number{form, form, u"在籍区分"_s};
    ComboItem combo{form, form, u"在籍区分名称"_s};
    QList<int> changes;

    void SetUp() override {
        form.resize(300, 200);
        item.setGeometry(10, 10, 80, 24);
        number.setGeometry(10, 40, 80, 24);
        combo.setGeometry(10, 70, 80, 24);
        bar.setGeometry(250, 10, 18, 180);
        bar.SetPosition(0, 20);
        combo.AddItem(u"一"_s);
        combo.AddItem(u"二"_s);
        combo.SetListIndex(0);
        number.SetValue(1);
        bar.Change = [this] { changes << bar.Value(); };
        ShowActive(form);
        ASSERT_TRUE(InstallWheelHook(form, bar, 8));
    }
    void TearDown() override { RemoveWheelHook(); }

    /// Sends one of the many events of a touchpad, which reports a wheel turn in small parts.
    static void Swipe(QWidget& widget, int angle, quint64 time = kNow) {
        const QPointF middle = widget.rect().center();
        QWheelEvent event(middle, widget.mapToGlobal(middle), QPoint(), QPoint(0, angle), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        event.setTimestamp(time);
        // Qt propagates a wheel event to parent widgets only if it comes from the window system.
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&widget, &event);
    }
};

TEST_F(WheelHook, ScrollsByOnePageInEachDirection) {
    Wheel(form, kTowardsUser);
    EXPECT_EQ(changes, QList<int>{8});
    Wheel(form, kAway);
    EXPECT_EQ(changes, (QList<int>{8, 0}));
}

TEST_F(WheelHook, WorksOverEveryControlOnceAndNoControlActsASecondTime) {
    for (QWidget* widget : std::initializer_list<QWidget*>{&item, &number, &combo, &bar}) {
        bar.SetValue(0);
        changes.clear();
        Wheel(*widget, kTowardsUser);
        EXPECT_EQ(changes, QList<int>{8});
    }
    EXPECT_EQ(number.Value(), 1);
    EXPECT_EQ(combo.ListIndex(), 0);
}

TEST_F(WheelHook, ScrollingUpAtTheTopEmitsNothing) {
    Wheel(form, kAway);
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(WheelHook, NearTheEndItStopsAtMax) {
    bar.SetValue(16);
    changes.clear();
    Wheel(form, kTowardsUser);
    EXPECT_EQ(changes, QList<int>{20});
}

TEST_F(WheelHook, FastTurnMovesOneStepAndNotTwo) {
    Wheel(form, QPoint(0, -240));
    EXPECT_EQ(changes, QList<int>{8});
}

TEST_F(WheelHook, SmallTurnsAreGatheredToOneMessage) {
    for (int i = 0; i < 7; ++i) Swipe(form, -15, kNow + 10 * static_cast<quint64>(i));
    EXPECT_TRUE(changes.isEmpty());
    Swipe(form, -15, kNow + 70);
    EXPECT_EQ(changes, QList<int>{8});
    EXPECT_EQ(form.wheels, 8) << "each event is passed on";
}

TEST_F(WheelHook, RestOfAGatheredTurnCountsForTheNextMessage) {
    for (int i = 0; i < 3; ++i) Swipe(item, -50);
    EXPECT_EQ(changes, QList<int>{8});
    Swipe(item, -50);
    EXPECT_EQ(changes, QList<int>{8});
    Swipe(item, -50);
    EXPECT_EQ(changes, (QList<int>{8, 16}));
}

TEST_F(WheelHook, ChangeOfDirectionStartsFromZero) {
    bar.SetValue(8);
    changes.clear();
    Swipe(form, -110);
    Swipe(form, 110);
    Swipe(form, -110);
    EXPECT_TRUE(changes.isEmpty());
    Swipe(form, -10);
    EXPECT_EQ(changes, QList<int>{16});
}

TEST_F(WheelHook, RestOlderThanHalfASecondDoesNotCount) {
    Swipe(form, -119);
    Swipe(form, -119, kNow + 501);
    EXPECT_TRUE(changes.isEmpty());
    Swipe(form, -1, kNow + 1001);
    EXPECT_EQ(changes, QList<int>{8});
}

TEST_F(WheelHook, WholeTurnLeavesNoRest) {
    Swipe(form, -30);
    Swipe(form, -240);
    Swipe(form, -100);
    EXPECT_EQ(changes, QList<int>{8});
}

TEST_F(WheelHook, TurnOverADisabledFormOrBarIsNotGathered) {
    bar.SetEnabled(false);
    Swipe(form, -100);
    bar.SetEnabled(true);
    form.SetEnabled(false);
    Swipe(form, -100);
    form.SetEnabled(true);
    Swipe(form, -100);
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(WheelHook, TurnOverAnotherWindowDoesNotCount) {
    Swipe(form, -100);
    CountingForm other(u"wnd担当者一覧"_s);
    ShowActive(other);
    Swipe(other, -100);
    EXPECT_TRUE(changes.isEmpty());
    ShowActive(form);
    Swipe(form, -100);
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(WheelHook, DisabledBarDoesNotScroll) {
    bar.SetEnabled(false);
    Wheel(form, kTowardsUser);
    EXPECT_EQ(bar.Value(), 0);
}

TEST_F(WheelHook, SidewaysTurnIsNoWheelMessage) {
    Wheel(form, QPoint(120, 0));
    Wheel(form, QPoint(0, 0));
    Wheel(bar, QPoint(-120, 0));
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(WheelHook, DisabledFormDoesNotScroll) {
    form.SetEnabled(false);
    Wheel(form, kTowardsUser);
    Wheel(item, kTowardsUser);
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(WheelHook, EventIsPassedOnToTheForm) {
    Wheel(item, kTowardsUser);
    Wheel(form, kAway);
    bar.SetEnabled(false);
    Wheel(form, kAway);
    EXPECT_EQ(form.wheels, 3);
}

TEST_F(WheelHook, ErrorInTheBarsHandlerIsSwallowedAndTheEventPassedOn) {
    bar.Change = [] { throw platform::RuntimeError(5, u"誤り"_s); };
    Wheel(form, kTowardsUser);
    EXPECT_EQ(form.wheels, 1);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(WheelHook, BarThatIsGoneIsNoBusinessOfTheEventLoop) {
    auto* shortLived = new ScrollItem(form, form, u"短命"_s);
    InstallWheelHook(form, *shortLived, 8);
    delete shortLived;
    Wheel(form, kTowardsUser);
    EXPECT_EQ(form.wheels, 1);
}

TEST_F(WheelHook, RemovedHookScrollsNoMore) {
    EXPECT_TRUE(RemoveWheelHook());
    Wheel(form, kTowardsUser);
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_FALSE(RemoveWheelHook());
}

TEST(WheelDelta, IsTheSignedHighWordAndMinusOneForZero) {
    const QList<QPair<quint32, int>> cases = {
        {0x00780000, 120}, {0x00F00000, 240},   {0xFF880000, -120},   {0xFF10000C, -240},
        {0x00010000, 1},   {0x7FFF0000, 32767}, {0x80000000, -32768}, {0xFFFF0000, -1},
        {0x0078FFFF, 120}, {0x00000000, -1},    {0x00000008, -1},     {0x0000FFFF, -1},
    };
    for (const auto& [parameter, delta] : cases) EXPECT_EQ(WheelDelta(parameter), delta) << parameter;
}
