#pragma once

#include <QScrollBar>

#include "screen/Control.h"

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

    /// Sets value and upper bound without an event, for a caller that has already painted the rest of the screen.
    /// Setting the bound first would emit Change for the clamped old value.
    void TakePlace(int value, int maxValue);

  protected:
    void wheelEvent(QWheelEvent* event) override;
};
