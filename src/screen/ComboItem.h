#pragma once

#include <QComboBox>

#include "screen/Control.h"

/// ComboBox: ComboItem(form, parent, name). A list to choose from, nothing to type. Raises Click when the user
/// chooses an entry and when the program writes another ListIndex. A ListIndex beyond the list shows no entry and
/// raises nothing. Assistive tools are told its name, and the entry shown as its description.
class ComboItem : public QComboBox, public Control {
  public:
    ComboItem(Form& form, QWidget& parent, QString name);

    /// The entry shown, empty when there is none.
    QString Text() const override { return currentText(); }
    /// Counted from 0; -1 when no entry is shown.
    int ListIndex() const override { return currentIndex(); }
    void SetListIndex(int index) override;
    void ClearList() override;
    /// Adds an entry at the end; the one that is shown stays, also where there is none.
    void AddItem(const QString& text) override;

    /// Not in a form that takes no input: a screen reader asks past the form.
    void showPopup() override;

  protected:
    bool EnterMovesOn() const override { return true; }
    void wheelEvent(QWheelEvent* event) override;
};

/// Fills a class list with the names and "全て" after them. The number beside it goes from 0 to the count of names, so
/// that its MaxValue means all. Neither shows another value than before.
void FillClassList(Control& number, Control& list, const QStringList& names);
