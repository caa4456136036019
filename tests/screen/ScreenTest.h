#pragma once

#include <gtest/gtest.h>

#include <QStringList>

#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/Panel.h"
#include "support/TestServices.h"

/// A form of three items, the second of them on a panel, whose focus events are written down in their order.
class ThreeItems : public Form {
  public:
    explicit ThreeItems(const QString& name = QStringLiteral("三項目"));

    Panel panel;
    InputItem first, second, third;
    QStringList events;

    /// Writes down LostFocus and GotFocus of a control as "-name" and "+name".
    void Record(Control& control);
    /// The events since the last call, joined by blanks.
    QString Taken();
};

class ScreenTest : public ::testing::Test {
  protected:
    TestServices services;

    static void Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// A key to whatever has the focus, as the window system hands it over.
    static void PressInWindow(QWidget& window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void Click(QWidget& widget, Qt::MouseButton button = Qt::LeftButton);
    static void DoubleClick(QWidget& widget);
    static void Type(QWidget& widget, const QString& text);
    /// Text that an input method commits.
    static void Commit(QWidget& widget, const QString& text);
    /// Turns the wheel over a widget; the angle is 120 for one notch away from the user.
    static void Wheel(QWidget& widget, QPoint angle);
    static void ShowActive(Form& form);
};
