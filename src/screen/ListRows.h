#pragma once

#include <QAbstractTableModel>
#include <QList>

#include "screen/ListRow.h"

/// The rows behind a ListView, in the order in which they are shown.
class ListRows : public QAbstractTableModel {
  public:
    using QAbstractTableModel::QAbstractTableModel;

    void AddColumn(const QString& title);
    void SetCheckBoxes(bool on) { checkBoxes_ = on; }
    bool CheckBoxes() const { return checkBoxes_; }

    void Clear();
    void Append(QList<ListRow> rows);
    const QList<ListRow>& All() const { return rows_; }
    void SetChecked(int row, bool checked);
    /// Sorts what is loaded by the text of one column, in Japanese order; equal texts keep their order.
    void SortBy(int column, Qt::SortOrder order);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    QString CellText(int row, int column) const;
    /// Puts the rows into the order given by their present places; selection and marks go with them.
    void Reorder(const QList<int>& places);

    QStringList titles_;
    QList<ListRow> rows_;
    bool checkBoxes_ = false;
};
