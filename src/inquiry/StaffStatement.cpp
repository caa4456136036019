// Part of StaffQuery.h: the statement.

#include <QStringList>
#include <array>

#include "globals/ProgramGlobals.h"
#include "inquiry/SearchConditions.h"
#include "inquiry/StaffQuery.h"
#include "screen/Control.h"
#include "screen/Form.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {
const QString kStaffTable = u"M担当者"_s;

// Staff before position, unlike on the screen.
constexpr auto kRangeOrder = std::to_array<Range>({Range::Department, Range::Section, Range::Staff, Range::Position});
static_assert(kRangeOrder.size() == kRangeCount);

/// Empty if the window is not loaded; the engine then rejects the statement.
QString SelectedText(const ConditionSelection& selection, const QString& column) {
    const SelectionSource* source = SourceOf(selection);
    return source == nullptr ? QString() : source->BuildSelectionCondition(kStaffTable, column);
}

/// Empty for an open range, so that a search for all staff compares no codes. If either bound differs from its default,
/// even by being empty, both are written.
QString BoundsText(const RangeCondition& range) {
    const QString& from = Globals().Conditions.*range.from;
    const QString& to = Globals().Conditions.*range.to;
    if (from == DefaultRangeFrom(range.mask, 0) && to == DefaultRangeTo(range.mask, 0)) return {};
    const QString qualified = u" AND "_s + kStaffTable + u'.' + range.column;
    return qualified + u" >= '"_s + from + u'\'' + qualified + u" <= '"_s + to + u'\'';
}

QString RangeText(const RangeCondition& range) {
    if (!(Globals().Flags.*range.selection.flag)) return BoundsText(range);
    return u" AND "_s + SelectedText(range.selection, range.column);
}

/// If the class means all, MaxValue is written back; so the initial 9 becomes the last entry of the list.
QString ClassText(const KindCondition& kind) {
    if (kind.column.isEmpty()) return {};
    int& value = Globals().Conditions.*kind.field;
    const int all = Globals().MainForm->Item(kind.item).MaxValue();
    if (value >= all) {
        value = all;
        return {};
    }
    return u" AND "_s + kStaffTable + u'.' + kind.column + u" = '"_s + FormatByMask(value, u"0"_s) + u'\'';
}

/// A single telephone text has no AND before it, so the engine rejects the statement and the search finds nothing. This
/// behaviour is expected; a list of telephones works.
QString JoinerOfSingleText(SearchText id) { return id == SearchText::Phone ? QString() : u" AND "_s; }

QString ContainsText(const TextCondition& condition) {
    const bool listed = Globals().Flags.*condition.selection.flag;
    const QString& text = Globals().Conditions.*condition.field;
    if (!listed && TrimBlanks(text).isEmpty()) return {};
    QStringList terms;
    for (const QString& column : condition.columns) {
        terms.append(listed ? SelectedText(condition.selection, column)
                            : kStaffTable + u'.' + column + u" LIKE '%"_s + QuoteSqlText(text) + u"%'"_s);
    }
    const QString joined = terms.join(u" OR "_s);
    const QString joiner = listed ? u" AND "_s : JoinerOfSingleText(condition.id);
    return joiner + (terms.size() > 1 ? u'(' + joined + u')' : joined);
}

QString OfficeText() {
    const QString& office = Globals().ScopeOfficeCode;
    if (office == RepeatZero(3)) return {};
    return u" AND M担当者.事業所コード = '"_s + office + u'\'';
}

QString OrderText(int displayOrder) {
    if (displayOrder < 0 || displayOrder >= DisplayOrders().size()) return {};
    return u" ORDER BY "_s + DisplayOrders()[displayOrder].columns;
}
}  // namespace

// Outer joins, since office, department, section and position may be missing. The class tables are inner joins: a staff
// row with an unknown class is silently omitted.
QString StaffStatementHead() {
    return u"SELECT"
           " M担当者.*, M事業所.名称 as 事業所名, M部門.名称 as 部門名, Mセクション.名称 as セクション名,"
           " M役職.名称 as 役職名, K性別区分.名称 as 性別区分名, K在籍区分.名称 as 在籍区分名,"
           " K社員区分.名称 as 社員区分名"
           " FROM K社員区分 INNER JOIN (K在籍区分 INNER JOIN (K性別区分 INNER JOIN (M役職 RIGHT JOIN"
           " (Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M事業所 RIGHT JOIN M担当者"
           " ON M事業所.コード = M担当者.事業所コード )"
           " ON M部門.コード = M担当者.部門コード )"
           " ON Mセクション.コード = M担当者.セクションコード)"
           " ON M役職.コード = M担当者.役職コード)"
           " ON K性別区分.区分 = M担当者.性別区分)"
           " ON K在籍区分.区分 = M担当者.在籍区分)"
           " ON K社員区分.区分 = M担当者.社員区分 "_s;
}

QString BuildStaffStatement() {
    QString sql = StaffStatementHead() + u" WHERE M担当者.コード <> ''"_s;
    for (const Range range : kRangeOrder) sql += RangeText(ConditionOf(range));
    for (const KindCondition& kind : KindConditions()) sql += ClassText(kind);
    for (const TextCondition& text : TextConditions()) sql += ContainsText(text);
    return sql + OfficeText() + OrderText(Globals().Conditions.DisplayOrder);
}
