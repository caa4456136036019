#include <QApplication>
#include <QSignalSpy>
#include <QtTest/QTest>

#include "screen/PendingInput.h"
#include "screen/PlainControls.h"
#include "screen/ScreenTest.h"
#include "screen/msgお待ち.h"

using namespace Qt::StringLiterals;

namespace {

/// Logs the input events that reach a widget.
class EventLog : public QObject {
  public:
    explicit EventLog(QWidget& widget) { widget.installEventFilter(this); }
    QStringList Taken() { return std::exchange(events_, {}); }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
            case QEvent::KeyPress:
            case QEvent::KeyRelease:
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::MouseMove:
            case QEvent::Wheel:
            case QEvent::InputMethod:
                events_ << QString::fromLatin1(QMetaEnum::fromType<QEvent::Type>().valueToKey(event->type()));
                break;
            default:
                break;
        }
        return false;
    }

  private:
    QStringList events_;
};

class PendingInput : public ScreenTest {
  protected:
    void SetUp() override {
        button.setGeometry(0, 0, 100, 30);
        item.setGeometry(0, 40, 100, 30);
        form.resize(200, 100);
        button.Click = [this] { ++clicks; };
        ShowActive(form);
        item.SetFocus();
        QCoreApplication::processEvents();
    }

    static void SendKey(QWidget& widget, QEvent::Type type, bool repeated = false) {
        QKeyEvent event(type, Qt::Key_X, Qt::NoModifier, 53, 0, 0, u"x"_s, repeated);
        qApp->notify(&widget, &event);
    }
    static void Move(QWidget& widget, Qt::MouseButtons buttons) {
        const QPointF place = widget.rect().center();
        QMouseEvent event(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, buttons, Qt::NoModifier);
        qApp->notify(&widget, &event);
    }

    /// The window system reports a click as soon as events are processed.
    void QueueClick() {
        QMetaObject::invokeMethod(
            &button, [this] { QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, button.geometry().center()); },
            Qt::QueuedConnection);
    }

    Form form{u"窓"_s};
    Button button{form, form, u"btn_検索"_s, u"検索"_s};
    InputItem item{form, form, u"xField"_s, u"検索名称"_s, -1, {}};
    int clicks = 0;
};

}  // namespace

TEST_F(PendingInput, IsDiscardedWhileABlockExistsAndNotAfterwards) {
    EventLog log(item);
    {
        const InputBlock block;
        Click(button);
        Type(item, u"x"_s);
        Commit(item, u"山"_s);
        Wheel(item, {0, 120});
        DoubleClick(item);
    }
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(item.Text(), QString());
    EXPECT_EQ(log.Taken(), QStringList());
    Click(button);
    item.SetFocus();
    Type(item, u"x"_s);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(item.Text(), u"x"_s);
}

TEST_F(PendingInput, NestedBlocksEndWithTheOuterOne) {
    const InputBlock outer;
    { const InputBlock inner; }
    EXPECT_TRUE(InputBlock::Exists());
    Click(button);
    EXPECT_EQ(clicks, 0);
}

TEST_F(PendingInput, PressByAScreenReaderIsDiscarded) {
    {
        const InputBlock block;
        button.click();
    }
    EXPECT_EQ(clicks, 0);
    button.click();
    EXPECT_EQ(clicks, 1);
}

TEST_F(PendingInput, ButtonThatWasDownGetsItsRelease) {
    QTest::mousePress(&button, Qt::LeftButton);
    {
        const InputBlock block;
        QTest::mouseRelease(&button, Qt::LeftButton);
    }
    EXPECT_FALSE(button.isDown());
}

TEST_F(PendingInput, ButtonPressedMeanwhileHasNoEffectUntilItsRelease) {
    EventLog log(item);
    {
        const InputBlock block;
        QTest::mousePress(&item, Qt::LeftButton);
    }
    Move(item, Qt::LeftButton);
    QTest::mouseRelease(&item, Qt::LeftButton);
    EXPECT_EQ(log.Taken(), QStringList());
    Move(item, Qt::NoButton);
    QTest::mousePress(&item, Qt::LeftButton);
    QTest::mouseRelease(&item, Qt::LeftButton);
    EXPECT_EQ(log.Taken(), (QStringList{u"MouseMove"_s, u"MouseButtonPress"_s, u"MouseButtonRelease"_s}));
}

TEST_F(PendingInput, KeyPressedMeanwhileRepeatsNothingUntilItsRelease) {
    EventLog log(item);
    {
        const InputBlock block;
        SendKey(item, QEvent::KeyPress);
    }
    for (int i = 0; i < 3; ++i) {
        SendKey(item, QEvent::KeyRelease, true);
        SendKey(item, QEvent::KeyPress, true);
    }
    SendKey(item, QEvent::KeyRelease);
    EXPECT_EQ(log.Taken(), QStringList());
    EXPECT_EQ(item.Text(), QString());
    SendKey(item, QEvent::KeyPress);
    SendKey(item, QEvent::KeyRelease);
    EXPECT_EQ(log.Taken(), (QStringList{u"KeyPress"_s, u"KeyRelease"_s}));
}

TEST_F(PendingInput, KeyThatWasDownRepeatsNoMoreAndGetsItsRelease) {
    SendKey(item, QEvent::KeyPress);
    EventLog log(item);
    {
        const InputBlock block;
        SendKey(item, QEvent::KeyPress, true);
    }
    SendKey(item, QEvent::KeyPress, true);
    EXPECT_EQ(log.Taken(), QStringList());
    SendKey(item, QEvent::KeyRelease);
    EXPECT_EQ(log.Taken(), QStringList{u"KeyRelease"_s});
}

// The release went to another program that had got the focus.
TEST_F(PendingInput, KeyWithoutAReleaseWorksAgainAtItsNextPress) {
    {
        const InputBlock block;
        SendKey(item, QEvent::KeyPress);
    }
    SendKey(item, QEvent::KeyPress);
    SendKey(item, QEvent::KeyPress, true);
    SendKey(item, QEvent::KeyRelease);
    EXPECT_EQ(item.Text(), u"xx"_s);
}

TEST_F(PendingInput, QueuedClickIsDroppedAndACloseBoxWorksAfterwards) {
    int closed = 0;
    form.Closing = [&] { ++closed; };
    QueueClick();
    QMetaObject::invokeMethod(
        &form, [this] { form.close(); }, Qt::QueuedConnection);
    DropPendingInput();
    EXPECT_EQ(closed, 0) << "the caller has not returned to the event loop";
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(closed, 1);
}

TEST_F(PendingInput, TimersDoNotFireWhileInputIsDropped) {
    bool fired = false;
    QTimer timer;
    timer.callOnTimeout([&] { fired = true; });
    timer.start(0);
    DropPendingInput();
    EXPECT_FALSE(fired);
}

// Otherwise the second click of a double click would start the job inside itself.
TEST_F(PendingInput, IsDroppedWhileTheWaitDialogIsShown) {
    QueueClick();
    ShowWaitDialog();
    UnloadWaitDialog();
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 0);
}
