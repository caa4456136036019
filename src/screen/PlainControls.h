#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>

#include "screen/Control.h"

class QMouseEvent;

// Buttons, check boxes, lists and scroll bars: Qt's widgets as Control. The constructors' arguments are given at each
// class; `name` is Control::Name.

/// SSCommand: Button(form, parent, name, caption). The caption may have several lines. Mouse, Space and Enter press the
/// focused button and emit Click; it is never the default button of its window. If the handler closes the window, the
/// second press of a double-click is discarded (DoubleClickGuard).
class Button : public QPushButton, public Control {
  public:
    Button(Form& form, QWidget& parent, QString name, const QString& caption);

    /// Makes the button paint nothing; it still takes focus and clicks. While it has the focus, `mark`, a rectangle of
    /// its parent in pixels, is filled.
    void SetFaceless(const QRect& mark);

    QString Caption() const override { return caption_; }
    void SetCaption(const QString& caption) override;
    QColor ForeColor() const override { return palette().color(QPalette::Active, QPalette::ButtonText); }
    void SetForeColor(const QColor& color) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    QString caption_;
    QWidget* focusMark_ = nullptr;  // of a button without a face
    bool byInput_ = false;          // pressed by key or mouse, which have already moved the focus
};

/// CheckBox: CheckItem(form, parent, name, index, caption). Value is 0 or 1; SetValue takes any number other than 0 as
/// 1. Emits Click at each change of Value, also when the program writes it. A click anywhere in its rectangle counts.
/// Without a caption the box is in the middle of the rectangle.
class CheckItem : public QCheckBox, public Control {
  public:
    CheckItem(Form& form, QWidget& parent, QString name, int index, const QString& caption);

    QString Caption() const override { return caption_; }
    void SetCaption(const QString& caption) override;
    int Value() const override { return isChecked() ? 1 : 0; }
    void SetValue(int value) override;

  protected:
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }
    void paintEvent(QPaintEvent* event) override;

  private:
    QString caption_;
};

/// ComboBox: ComboItem(form, parent, name), not editable. Emits Click when the user chooses an entry and when the
/// program writes another ListIndex. A ListIndex beyond the list shows no entry and emits nothing. Accessibility: the
/// control's name is the accessible name, the current entry the description. The wheel does nothing.
class ComboItem : public QComboBox, public Control {
  public:
    ComboItem(Form& form, QWidget& parent, QString name);

    /// The current entry; empty without one.
    QString Text() const override { return currentText(); }
    /// 0-based; -1 if no entry is shown.
    int ListIndex() const override { return currentIndex(); }
    void SetListIndex(int index) override;
    void ClearList() override;
    /// Appends an entry; the current entry does not change.
    void AddItem(const QString& text) override;

    /// Ignored while the form takes no input: a screen reader bypasses the form's event filter.
    void showPopup() override;

  protected:
    bool EnterMovesOn() const override { return true; }
    void wheelEvent(QWheelEvent* event) override;
};

/// Fills the list of a class (a number with a combo box that shows the number's name) with `names`, followed by "全て".
/// `number` gets the bounds 0 to the count of names, so its MaxValue means all. Its value does not change; the list has
/// no current entry afterwards. Neither emits an event.
void FillClassList(Control& number, Control& list, const QStringList& names);

/// VScrollBar: ScrollItem(form, parent, name). Emits Change at each change of Value, also while dragging. It ignores
/// the wheel, which the form gets. Not a tab stop by default; a click gives it the focus.
class ScrollItem : public QScrollBar, public Control {
  public:
    ScrollItem(Form& form, QWidget& parent, QString name);

    int Value() const override { return value(); }
    /// Clamped to the bounds.
    void SetValue(int value) override;
    int MinValue() const override { return minimum(); }
    int MaxValue() const override { return maximum(); }
    int LargeChange() const override { return pageStep(); }
    void SetLargeChange(int rows) override;

    /// Sets value and upper bound without an event. With a separate setter for the bound, Change would be emitted for
    /// the old value, clamped to the new bound. `value` is clamped.
    void SetPosition(int value, int maxValue);

  protected:
    void wheelEvent(QWheelEvent* event) override;
};

/// Scope guard around the handling of a click that may close its own window. Users who double-click out of habit would
/// press what the closed window uncovers. If the window is closed or hidden when the guard is destroyed, the next press
/// is discarded with its release, in all windows of the program, if it has the same button, is at the same position and
/// within the double-click interval. `click` must outlive the guard.
class DoubleClickGuard {
  public:
    DoubleClickGuard(const QWidget& clicked, const QMouseEvent& click) : window_(clicked.window()), click_(click) {}
    ~DoubleClickGuard();
    DoubleClickGuard(const DoubleClickGuard&) = delete;
    DoubleClickGuard& operator=(const DoubleClickGuard&) = delete;

  private:
    QPointer<QWidget> window_;
    const QMouseEvent& click_;
};
