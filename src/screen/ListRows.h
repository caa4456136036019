#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QString>
#include <QStringList>

/// One row of a ListView. The key is "C" followed by the code, since the suite's keys do not begin with a digit. Keys
/// need not be unique, so that a master with a duplicate code can still be shown.
struct ListRow {
    QString text;          ///< first column
    QString key;           ///< "C00012"
    QStringList subItems;  ///< from the second column on
    bool checked = false;
};

/// Model of a ListView: the rows in the order shown.
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
    /// Stable sort by the text of a column (from 0), in Japanese collation.
    void SortBy(int column, Qt::SortOrder order);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    QString CellText(int row, int column) const;
    /// Reorders the rows; `places` contains their present positions. Selection and check marks move with their rows.
    void Reorder(const QList<int>& places);

    QStringList titles_;
    QList<ListRow> rows_;
    bool checkBoxes_ = false;
};
