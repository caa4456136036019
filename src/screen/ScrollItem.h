#pragma once

#include <QScrollBar>

#include "screen/Control.h"

/// VScrollBar: ScrollItem(form, parent, name). Raises Change at each change of Value, while dragging too. The wheel
/// passes through it to the form. No tab stop unless told; a click gives it the focus.
class ScrollItem : public QScrollBar, public Control {
  public:
    ScrollItem(Form& form, QWidget& parent, QString name);

    int Value() const override { return value(); }
    /// A value beyond the bounds stops at them.
    void SetValue(int value) override;
    int MinValue() const override { return minimum(); }
    int MaxValue() const override { return maximum(); }
    /// A bound that crosses the value takes it along and raises Change.
    void SetMinValue(int value) override;
    void SetMaxValue(int value) override;
    int LargeChange() const override { return pageStep(); }
    void SetLargeChange(int rows) override;

    /// Value and upper bound in one step, raising nothing: for who has brought the rest of the screen to that
    /// place already. Lowering the bound alone would first report the row where the old value was stopped.
    void TakePlace(int value, int maxValue);

  protected:
    void wheelEvent(QWheelEvent* event) override;

  private:
    void Write(const std::function<void()>& write);
};
