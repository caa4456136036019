#pragma once

#include <QScrollBar>

#include "screen/Control.h"

/// VScrollBar: ScrollItem(form, parent, name). MinValue and MaxValue are its Min and Max.
class ScrollItem : public QScrollBar, public Control {
  public:
    ScrollItem(Form& form, QWidget& parent, QString name);

    int Value() const override { return value(); }
    void SetValue(int value) override;
    int MinValue() const override { return minimum(); }
    int MaxValue() const override { return maximum(); }
    void SetMinValue(int value) override { Write([=, this] { setMinimum(value); }); }
    /// Lowering it below the value moves the value along and raises Change.
    void SetMaxValue(int value) override { Write([=, this] { setMaximum(value); }); }
    int LargeChange() const override { return pageStep(); }
    void SetLargeChange(int rows) override { setPageStep(rows); }

  private:
    template <typename Work>
    void Write(const Work& work) {
        const int before = value();
        writing_ = true;
        work();
        writing_ = false;
        if (value() != before && Change) Change();
    }

    bool writing_ = false;
};
