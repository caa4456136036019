#pragma once

#include <QDateTime>
#include <QTreeView>

#include "screen/Control.h"
#include "screen/ListRows.h"

/// ListView: ListView(form, parent, name). Rows with columns; one row can be selected, or none. Filling the list and
/// giving it the focus select nothing. Rows and columns are counted from 0, rows in the order shown.
///
/// Emits Click when the left button is released on the row on which it was pressed, KeyPress with kKeyReturn for Enter
/// without auto-repeat, ColumnClick for a column title. Typed characters select the first row whose text begins with
/// them, ignoring case; after a pause of one second the search text begins again. Column widths can be dragged. If the
/// handler of a click closes the window, the second press of a double-click is discarded (DoubleClickGuard).
class ListView : public QTreeView, public Control {
  public:
    ListView(Form& form, QWidget& parent, QString name);

    /// Appends a column; width in twips.
    void AddColumn(const QString& title, int width);
    /// Shows a check box in each row, toggled by a click on it or, in the current row, by Space.
    void SetCheckBoxes(bool on);
    /// Lets the user highlight several rows with Ctrl and Shift.
    void SetMultiSelect(bool on);

    /// Removes all rows with their check marks and the selection. Rows added afterwards are not sorted; SortKey and
    /// SortOrder do not change.
    void ClearRows();
    /// Appends rows.
    void AddRows(QList<ListRow> rows);
    int RowHeight() const;  ///< pixels
    int RowCount() const { return static_cast<int>(rows_.All().size()); }
    const ListRow& Row(int row) const { return rows_.All()[row]; }
    bool Checked(int row) const { return Row(row).checked; }
    void SetChecked(int row, bool checked) { rows_.SetChecked(row, checked); }

    /// The current row if it is selected, otherwise -1.
    int SelectedRow() const;
    /// Selects one row and scrolls to it; -1 for none.
    void SelectRow(int row);
    /// True if the row is selected; with SetMultiSelect several rows can be.
    bool Highlighted(int row) const;

    /// Column by which SetSorted sorts.
    int SortKey() const { return sortKey_; }
    void SetSortKey(int column) { sortKey_ = column; }
    Qt::SortOrder SortOrder() const { return sortOrder_; }
    void SetSortOrder(Qt::SortOrder order) { sortOrder_ = order; }
    /// True sorts the present rows by SortKey and SortOrder, even if they are sorted already, and shows the sort
    /// indicator; false hides it and does not move rows.
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
    void ToggleBySpace(const QKeyEvent& event);
    int FirstRowBeginningWith(const QString& beginning) const;

    ListRows rows_;
    int sortKey_ = 0;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    int pressedRow_ = -1;
    QString typed_;
    QDateTime lastTyped_;
};
