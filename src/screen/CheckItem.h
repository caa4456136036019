#pragma once

#include <QCheckBox>

#include "screen/Control.h"

/// CheckBox: CheckItem(form, parent, name, index, caption). Value 0 or 1.
class CheckItem : public QCheckBox, public Control {
  public:
    CheckItem(Form& form, QWidget& parent, QString name, int index, const QString& caption);

    int Value() const override { return isChecked() ? 1 : 0; }
    void SetValue(int value) override;
    QString Caption() const override { return text(); }

  private:
    bool writing_ = false;
};
