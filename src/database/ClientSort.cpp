// Part of ResultTable.h: SortRows.

#include "database/ResultTable.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "database/collation/TextFolding.h"

namespace database {
namespace {

int CompareCells(const ResultTable& rows, int one, int other, int column, bool asText) {
    const bool oneNull = rows.IsNull(one, column), otherNull = rows.IsNull(other, column);
    if (oneNull || otherNull) return static_cast<int>(otherNull) - static_cast<int>(oneNull);
    const QByteArrayView a = rows.Utf8(one, column), b = rows.Utf8(other, column);
    return asText ? CompareTexts(a, b) : a.compare(b);
}

std::shared_ptr<ColumnSet> ColumnsWithoutKeys(const ColumnSet& columns, int count) {
    auto shown = std::make_shared<ColumnSet>();
    for (int column = 0; column < count; ++column) shown->Add(columns.Name(column), columns.DeclaredType(column));
    return shown;
}

}  // namespace

std::shared_ptr<ResultTable> SortRows(const ResultTable& rows, const QList<SortKey>& order, int limit) {
    const int shown = rows.Columns().Count() - static_cast<int>(order.size());
    std::vector<int> places(static_cast<size_t>(rows.RowCount()));
    std::iota(places.begin(), places.end(), 0);
    std::stable_sort(places.begin(), places.end(), [&](int one, int other) {
        for (int key = 0; key < order.size(); ++key) {
            const int compared = CompareCells(rows, one, other, shown + key, order[key].asText);
            if (compared != 0) return order[key].descending ? compared > 0 : compared < 0;
        }
        return false;
    });
    if (limit >= 0 && static_cast<size_t>(limit) < places.size()) places.resize(static_cast<size_t>(limit));
    auto sorted = std::make_shared<ResultTable>(ColumnsWithoutKeys(rows.Columns(), shown));
    for (const int row : places) {
        sorted->BeginRow();
        for (int column = 0; column < shown; ++column) {
            if (rows.IsNull(row, column))
                sorted->AppendNull();
            else
                sorted->AppendText(rows.Utf8(row, column));
        }
    }
    return sorted;
}

}  // namespace database
