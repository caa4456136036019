#pragma once

#include <QComboBox>

#include "screen/Control.h"

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

/// Fills a class list with the names, followed by "全て". The paired number gets the bounds 0 to the count of names, so
/// its MaxValue means all. Values and current entry do not change.
void FillClassList(Control& number, Control& list, const QStringList& names);
