#pragma once

#include <QCheckBox>

#include "screen/Control.h"

/// CheckBox: CheckItem(form, parent, name, index, caption). Value is 0 or 1. Raises Click at each change of Value,
/// also when the program writes it. A box in a list row is told SetTakesFocus(false) and SetTabStop(false).
class CheckItem : public QCheckBox, public Control {
  public:
    CheckItem(Form& form, QWidget& parent, QString name, int index, const QString& caption);

    QString Caption() const override { return caption_; }
    void SetCaption(const QString& caption) override;
    int Value() const override { return isChecked() ? 1 : 0; }
    void SetValue(int value) override;

  protected:
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }

  private:
    QString caption_;
};
