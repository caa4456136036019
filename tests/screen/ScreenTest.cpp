#include "screen/ScreenTest.h"

#include <QtTest/qtestspontaneevent.h>
#include <QApplication>
#include <QInputMethodEvent>
#include <QWheelEvent>

#include <QtTest/QTest>

using namespace Qt::StringLiterals;

ThreeItems::ThreeItems(const QString& name)
    : Form(name),
      panel(*this, *this, u"台"_s, -1, QString()),
      first(*this, *this, u"xField"_s, u"一"_s, -1, {}),
      second(*this, panel, u"xField"_s, u"二"_s, -1, {}),
      third(*this, *this, u"xField"_s, u"三"_s, -1, {}) {
    resize(400, 300);
    first.setGeometry(10, 10, 100, 24);
    panel.setGeometry(10, 40, 300, 60);
    second.setGeometry(10, 10, 100, 24);
    third.setGeometry(10, 110, 100, 24);
    for (InputItem* item : {&first, &second, &third}) Record(*item);
}

void ThreeItems::Record(Control& control) {
    control.LostFocus = [this, &control] { events << u'-' + control.Name(); };
    control.GotFocus = [this, &control] { events << u'+' + control.Name(); };
}

QString ThreeItems::Taken() { return std::exchange(events, {}).join(u' '); }

void ScreenTest::Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&widget, static_cast<Qt::Key>(key), modifiers);
}

void ScreenTest::PressInWindow(QWidget& window, int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(key), modifiers);
}

void ScreenTest::Click(QWidget& widget, Qt::MouseButton button) { QTest::mouseClick(&widget, button); }

void ScreenTest::DoubleClick(QWidget& widget) {
    QTest::mouseClick(&widget, Qt::LeftButton);
    QTest::mouseDClick(&widget, Qt::LeftButton);
}

void ScreenTest::Type(QWidget& widget, const QString& text) {
    for (const QChar sign : text)
        QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(sign), Qt::NoModifier);
}

void ScreenTest::Commit(QWidget& widget, const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(&widget, &event);
}

void ScreenTest::Wheel(QWidget& widget, QPoint angle) {
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), QPoint(), angle, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    // Qt propagates a wheel event to parent widgets only if it comes from the window system.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
}

void ScreenTest::ShowActive(Form& form) {
    form.ShowModeless();
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
}
