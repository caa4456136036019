#include "screen/ListRows.h"

#include <QCollator>
#include <algorithm>
#include <numeric>
#include <vector>

void ListRows::AddColumn(const QString& title) {
    const int place = static_cast<int>(titles_.size());
    beginInsertColumns({}, place, place);
    titles_ << title;
    endInsertColumns();
}

void ListRows::Clear() {
    beginResetModel();
    rows_.clear();
    endResetModel();
}

void ListRows::Append(QList<ListRow> rows) {
    if (rows.isEmpty()) return;
    const int first = static_cast<int>(rows_.size());
    beginInsertRows({}, first, first + static_cast<int>(rows.size()) - 1);
    rows_ += std::move(rows);
    endInsertRows();
}

void ListRows::SetChecked(int row, bool checked) {
    if (rows_[row].checked == checked) return;
    rows_[row].checked = checked;
    const QModelIndex box = index(row, 0);
    Q_EMIT dataChanged(box, box, {Qt::CheckStateRole});
}

void ListRows::SortBy(int column, Qt::SortOrder order) {
    // The collation of the C locale is not Japanese.
    const QCollator collator(QLocale(QLocale::Japanese, QLocale::Japan));
    std::vector<QCollatorSortKey> keys;
    keys.reserve(static_cast<size_t>(rows_.size()));
    for (int row = 0; row < rows_.size(); ++row) keys.push_back(collator.sortKey(CellText(row, column)));
    QList<int> places(rows_.size());
    std::iota(places.begin(), places.end(), 0);
    std::stable_sort(places.begin(), places.end(), [&](int a, int b) {
        const int comparison = keys[static_cast<size_t>(a)].compare(keys[static_cast<size_t>(b)]);
        return order == Qt::AscendingOrder ? comparison < 0 : comparison > 0;
    });
    Reorder(places);
}

void ListRows::Reorder(const QList<int>& places) {
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    QList<ListRow> sorted;
    sorted.reserve(rows_.size());
    QList<int> newPlaces(rows_.size());
    for (const int place : places) {
        newPlaces[place] = static_cast<int>(sorted.size());
        sorted << std::move(rows_[place]);
    }
    rows_ = std::move(sorted);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& kept : before) after << index(newPlaces[kept.row()], kept.column());
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

QString ListRows::CellText(int row, int column) const {
    return column == 0 ? rows_[row].text : rows_[row].subItems.value(column - 1);
}

int ListRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ListRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(titles_.size());
}

QVariant ListRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::DisplayRole) return CellText(index.row(), index.column());
    const bool box = role == Qt::CheckStateRole && checkBoxes_ && index.column() == 0;
    if (!box) return {};
    return static_cast<int>(rows_[index.row()].checked ? Qt::Checked : Qt::Unchecked);
}

bool ListRows::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::CheckStateRole || !checkBoxes_) return false;
    SetChecked(index.row(), value.toInt() == Qt::Checked);
    return true;
}

QVariant ListRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return titles_.value(section);
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags ListRows::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags row = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return checkBoxes_ && index.column() == 0 ? row | Qt::ItemIsUserCheckable : row;
}
