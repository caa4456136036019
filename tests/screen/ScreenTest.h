#pragma once

#include <gtest/gtest.h>

#include <QStringList>

#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/Labels.h"
#include "support/TestServices.h"

/// A form with three items, the second one on a panel, that logs their focus events.
class ThreeItems : public Form {
  public:
    explicit ThreeItems(const QString& name = QStringLiteral("三項目"));

    Panel panel;
    InputItem first, second, third;
    QStringList events;

    /// Logs LostFocus and GotFocus of a control as "-name" and "+name".
    void Record(Control& control);
    /// The events since the last call, joined by blanks.
    QString Taken();
};

class ScreenTest : public ::testing::Test {
  protected:
    TestServices services;

    static void Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Sends a key to the focused widget as the window system does.
    static void PressInWindow(QWidget& window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void Click(QWidget& widget, Qt::MouseButton button = Qt::LeftButton);
    static void DoubleClick(QWidget& widget);
    static void Type(QWidget& widget, const QString& text);
    /// Commits text as an input method does.
    static void Commit(QWidget& widget, const QString& text);
    /// Sends a wheel event to a widget; the angle is 120 for one step away from the user.
    static void Wheel(QWidget& widget, QPoint angle);
    static void ShowActive(Form& form);
};
