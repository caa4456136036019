// The part of StaffQuery that builds the statement.

#include <QStringList>
#include <array>

#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/SelectionSource.h"
#include "inquiry/StaffQuery.h"
#include "screen/Control.h"
#include "screen/Form.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {
using Conditions = InquiryConditions;
using Flags = ConditionFlags;

const QString kStaffTable = u"M担当者"_s;

struct CodeCondition {
    bool Flags::*picked;
    QString window;
    QString column;
    Range range;
};

/// In the order of the statement: staff before position, unlike on the screen.
const std::array<CodeCondition, 4>& CodeConditions() {
    static const std::array<CodeCondition, 4> conditions = {{
        {&Flags::DepartmentPicked, u"wnd部門選択一覧"_s, u"部門コード"_s, Range::Department},
        {&Flags::SectionPicked, u"wndセクション選択一覧"_s, u"セクションコード"_s, Range::Section},
        {&Flags::StaffPicked, u"wnd担当者選択一覧"_s, u"コード"_s, Range::Staff},
        {&Flags::PositionPicked, u"wnd役職選択一覧"_s, u"役職コード"_s, Range::Position},
    }};
    return conditions;
}

struct TextCondition {
    bool Flags::*listed;
    QString window;
    QStringList columns;
    QString Conditions::*text;
    QString joinerOfSingleText;
};

/// A single telephone text has no AND before it, so the engine rejects the statement and the search finds nothing. This
/// behaviour is expected; a list of telephones works.
const std::array<TextCondition, 5>& TextConditions() {
    static const std::array<TextCondition, 5> conditions = {{
        {&Flags::NameListGiven, u"wnd担当者名複数指定"_s, {u"氏名"_s}, &Conditions::SearchName, u" AND "_s},
        {&Flags::KanaListGiven, u"wnd担当者カナ複数指定"_s, {u"カナ"_s}, &Conditions::SearchKana, u" AND "_s},
        {&Flags::AddressListGiven,
         u"wnd担当者住所複数指定"_s,
         {u"住所A"_s, u"住所B"_s, u"住所C"_s},
         &Conditions::SearchAddress,
         u" AND "_s},
        {&Flags::PhoneListGiven, u"wnd担当者電話複数指定"_s, {u"電話"_s}, &Conditions::SearchPhone, QString()},
        {&Flags::ZipListGiven, u"wnd担当者郵便番号複数指定"_s, {u"郵便番号"_s}, &Conditions::SearchZip, u" AND "_s},
    }};
    return conditions;
}

/// Empty if the window is not loaded; the engine then rejects the statement.
QString SelectionCondition(const QString& window, const QString& column) {
    const SelectionSource* source = Globals().SelectionWindows.value(window, nullptr);
    return source ? source->BuildSelectionCondition(kStaffTable, column) : QString();
}

/// Empty for an open range, so that a search for all staff compares no codes. If either bound differs from its default,
/// even by being empty, both are written.
QString RangeConditionText(const QString& column, Range range) {
    const RangeDefinition& definition = DefinitionOf(range);
    const QString& from = Globals().Conditions.*definition.from;
    const QString& to = Globals().Conditions.*definition.to;
    if (from == DefaultRangeFrom(definition.mask, 0) && to == DefaultRangeTo(definition.mask, 0)) return {};
    const QString qualified = u" AND "_s + kStaffTable + u'.' + column;
    return qualified + u" >= '"_s + from + u'\'' + qualified + u" <= '"_s + to + u'\'';
}

QString CodeConditionText(const CodeCondition& condition) {
    if (Globals().Flags.*condition.picked) return u" AND "_s + SelectionCondition(condition.window, condition.column);
    return RangeConditionText(condition.column, condition.range);
}

/// If the class means all, MaxValue is written back; so the initial 9 becomes the last entry of the list.
QString ClassConditionText(const KindDefinition& definition) {
    int& value = Globals().Conditions.*definition.field;
    const int all = Globals().MainForm->Item(definition.item).MaxValue();
    if (value >= all) {
        value = all;
        return {};
    }
    return u" AND "_s + kStaffTable + u'.' + definition.item + u" = '"_s + FormatByMask(value, u"0"_s) + u'\'';
}

QString TextConditionText(const TextCondition& condition) {
    const bool listed = Globals().Flags.*condition.listed;
    const QString& text = Globals().Conditions.*condition.text;
    if (!listed && TrimBlanks(text).isEmpty()) return {};
    QStringList terms;
    for (const QString& column : condition.columns) {
        terms.append(listed ? SelectionCondition(condition.window, column)
                            : kStaffTable + u'.' + column + u" LIKE '%"_s + QuoteSqlText(text) + u"%'"_s);
    }
    const QString joined = terms.join(u" OR "_s);
    const QString joiner = listed ? u" AND "_s : condition.joinerOfSingleText;
    return joiner + (terms.size() > 1 ? u'(' + joined + u')' : joined);
}

QString OfficeConditionText() {
    const QString& office = Globals().ScopeOfficeCode;
    if (office == RepeatZero(3)) return {};
    return u" AND M担当者.事業所コード = '"_s + office + u'\'';
}

QString OrderText(int displayOrder) {
    static const std::array<QString, 5> clauses = {
        u" ORDER BY M担当者.コード"_s,
        u" ORDER BY M担当者.事業所コード, M担当者.部門コード, M担当者.セクションコード, M担当者.役職コード, M担当者.コード"_s,
        u" ORDER BY M担当者.氏名"_s,
        u" ORDER BY M担当者.カナ"_s,
        u" ORDER BY M担当者.郵便番号, M担当者.氏名"_s,
    };
    if (displayOrder < 0 || displayOrder >= static_cast<int>(clauses.size())) return {};
    return clauses[static_cast<size_t>(displayOrder)];
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
    for (const CodeCondition& condition : CodeConditions()) sql += CodeConditionText(condition);
    for (const KindDefinition& kind : KindDefinitions()) {
        if (kind.field != &Conditions::DisplayOrder) sql += ClassConditionText(kind);
    }
    for (const TextCondition& condition : TextConditions()) sql += TextConditionText(condition);
    return sql + OfficeConditionText() + OrderText(Globals().Conditions.DisplayOrder);
}
