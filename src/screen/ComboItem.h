#pragma once

#include <QComboBox>

#include "screen/Control.h"

/// ComboBox: ComboItem(form, parent, name). A position beyond the list shows no entry.
class ComboItem : public QComboBox, public Control {
  public:
    ComboItem(Form& form, QWidget& parent, QString name);

    int ListIndex() const override { return currentIndex(); }
    void SetListIndex(int index) override;
    void ClearList() override;
    void AddItem(const QString& text) override;
    QString Text() const override { return currentText(); }

  private:
    bool writing_ = false;
};
