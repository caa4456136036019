#pragma once

#include <QLineEdit>

#include "screen/Control.h"

/// xNum: NumItem(form, parent, name). Typing and the arrow keys stay between MinValue and MaxValue; what the program
/// writes is taken as it is.
class NumItem : public QLineEdit, public Control {
  public:
    NumItem(Form& form, QWidget& parent, QString name);

    int Value() const override { return value_; }
    void SetValue(int value) override;
    int MinValue() const override { return min_; }
    int MaxValue() const override { return max_; }
    void SetMinValue(int value) override { min_ = value; }
    void SetMaxValue(int value) override { max_ = value; }
    QString Text() const override { return text(); }
    void FocusGiven() override { selectAll(); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    void Try(int value);
    void TypeDigit(int digit);

    int value_ = 0;
    int min_ = 0;
    int max_ = 0;
};
