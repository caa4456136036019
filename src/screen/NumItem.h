#pragma once

#include "screen/LineEditItem.h"

/// xNum: NumItem(form, parent, name). A number >= 0. A typed digit replaces the number, or is appended to the digit
/// typed just before if the result is within the bounds; input outside the bounds is rejected. The arrow keys count up
/// and down, deletion resets to MinValue. The program can write values outside the bounds. Emits Change at each change
/// of Value. The wheel does nothing.
class NumItem : public LineEditItem {
  public:
    NumItem(Form& form, QWidget& parent, QString name);

    QString Text() const override { return text(); }
    int Value() const override { return value_; }
    void SetValue(int value) override;
    int MinValue() const override { return minValue_; }
    int MaxValue() const override { return maxValue_; }
    void SetMinValue(int value) override { minValue_ = value; }
    void SetMaxValue(int value) override { maxValue_ = value; }

    void FocusGiven(bool byPress) override;

  protected:
    void AddToMenu(QMenu& menu) override;
    void Insert(const QString& text, bool composed) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool Within(int value) const { return minValue_ <= value && value <= maxValue_; }
    void Show();
    void TakeFromUser(int value);
    void TakeOver();

    int value_ = 0;
    int minValue_ = 0;
    int maxValue_ = 9;
    bool digitTyped_ = false;  // the next digit may be appended
};
