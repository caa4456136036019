#pragma once

#include <QDateTime>
#include <QTreeView>

#include "screen/Control.h"
#include "screen/ListRows.h"

/// ListView: ListView(form, parent, name). Rows with columns, of which one can be selected, or none. Nothing is
/// selected until the user, or SelectRow, picks a row: filling the list and giving it the focus don't.
///
/// Raises Click when the left button goes up on the row on which it went down (a click beside the rows, or on a column
/// title, is none), KeyPress for Enter pressed anew, ColumnClick for a column title. Typed letters and digits go to
/// the first row whose text begins with them; after a second without a key a new word begins. Column borders can be
/// dragged. A click whose handler takes the window away keeps the second press of a double click from whatever lies
/// behind.
class ListView : public QTreeView, public Control {
  public:
    ListView(Form& form, QWidget& parent, QString name);

    /// A further column on the right; width in twips.
    void AddColumn(const QString& title, int width);
    /// A check mark in front of each row, toggled by a click on it or, in the row with the caret, by Space.
    void SetCheckBoxes(bool on);
    /// Several rows can be highlighted, with Ctrl and Shift.
    void SetMultiSelect(bool on);

    /// Takes all rows away, their marks and the selection with them. Rows added afterwards stand as they were added:
    /// Sorted is taken back, SortKey and SortOrder stay.
    void ClearRows();
    void AddRows(QList<ListRow> rows);
    int RowHeight() const;  ///< pixels
    int RowCount() const { return static_cast<int>(rows_.All().size()); }
    const ListRow& Row(int row) const { return rows_.All()[row]; }
    bool Checked(int row) const { return Row(row).checked; }
    void SetChecked(int row, bool checked) { rows_.SetChecked(row, checked); }

    /// The selected row, counted from 0 in the order shown; -1 for none, -1 too where several are highlighted and the
    /// one with the caret is not.
    int SelectedRow() const;
    /// Selects one row and scrolls to it; -1 for none.
    void SelectRow(int row);
    bool Highlighted(int row) const;

    int SortKey() const { return sortKey_; }
    void SetSortKey(int column) { sortKey_ = column; }
    Qt::SortOrder SortOrder() const { return sortOrder_; }
    void SetSortOrder(Qt::SortOrder order) { sortOrder_ = order; }
    bool Sorted() const { return sorted_; }
    /// True sorts what is loaded by SortKey and SortOrder, also when it was sorted before.
    void SetSorted(bool sorted);

    std::function<void(int column)> ColumnClick;
    std::function<void(int keyAscii)> KeyPress;

    void keyboardSearch(const QString& typed) override;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void TakeSpace(const QKeyEvent& event);
    int FirstRowBeginningWith(const QString& beginning) const;

    ListRows rows_;
    int sortKey_ = 0;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    bool sorted_ = false;
    int pressedRow_ = -1;
    QString typed_;
    QDateTime lastTyped_;
};
