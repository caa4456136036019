#include "setup/schema/ClassTables.h"

#include <QSet>
#include <algorithm>

#include "setup/schema/GeneralDatabase.h"

using namespace Qt::StringLiterals;

namespace setup {

bool ClassState::HasDuplicates() const { return QSet<QString>(rows.begin(), rows.end()).size() < rows.size(); }

bool ClassState::IsNumbered() const {
    for (qsizetype i = 0; i < rows.size(); ++i)
        if (rows[i] != QString::number(i)) return false;
    return true;
}

QStringList ClassState::MissingDigits(const ClassTable& table) const {
    QStringList used;
    for (const UnlistedClass& one : unlisted)
        if (IsClassDigit(one.value)) used.append(one.value);
    if (!table.numbered) return used;
    int last = rows.isEmpty() ? 1 : 0;  // every numbered table has at least two classes
    for (const QString& value : rows + used)
        if (IsClassDigit(value)) last = std::max(last, value.toInt());
    QStringList missing;
    for (int digit = 0; digit <= last; ++digit)
        if (const QString value = QString::number(digit); !rows.contains(value)) missing.append(value);
    return missing;
}

bool ClassState::HasOthers(const ClassTable& table) const {
    const auto isOther = [](const QString& value) { return !IsClassDigit(value); };
    return (table.numbered && std::any_of(rows.begin(), rows.end(), isOther)) ||
           std::any_of(unlisted.begin(), unlisted.end(), [&](const UnlistedClass& one) { return isOther(one.value); });
}

bool IsClassDigit(const QString& value) { return value.size() == 1 && value[0] >= u'0' && value[0] <= u'9'; }

std::optional<ClassState> ReadClassState(database::Connection& general, const ClassTable& table) {
    const auto rows = RowsOf(general, u"SELECT 区分 FROM %1 ORDER BY 区分"_s.arg(table.table));
    if (!rows) return std::nullopt;
    ClassState state;
    for (const QStringList& row : *rows) state.rows.append(row[0].isNull() ? u""_s : row[0]);
    if (table.staffColumn.isEmpty()) return state;
    const auto unlisted = RowsOf(general,
                                 u"SELECT M担当者.%2, COUNT(*) FROM M担当者 LEFT JOIN %1 ON %1.区分 = M担当者.%2"
                                 u" WHERE %1.区分 IS NULL GROUP BY M担当者.%2"_s.arg(table.table, table.staffColumn));
    if (!unlisted) return std::nullopt;
    for (const QStringList& row : *unlisted) state.unlisted.append({.value = row[0], .count = row[1]});
    std::sort(state.unlisted.begin(), state.unlisted.end(),
              [](const UnlistedClass& a, const UnlistedClass& b) { return a.value < b.value; });
    return state;
}

}  // namespace setup
