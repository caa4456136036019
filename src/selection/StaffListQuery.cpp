#include "selection/StaffListQuery.h"

#include <QList>

#include "globals/ProgramGlobals.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

using Conditions = StaffListConditions;

/// Statement builder: the first term follows WHERE, each further one AND.
class ListStatement {
  public:
    ListStatement() : sql_(BuildListQueryHead()), joined_(Globals().GeneralDatabase.db == u"O") {}

    void Add(const QString& term) {
        sql_ += (joined_ ? u" AND "_s : u" WHERE "_s) + term;
        joined_ = true;
    }
    QString Ordered(const QString& column) const { return sql_ + u" ORDER BY M担当者."_s + column; }

  private:
    QString sql_;
    bool joined_;  // the head of dialect O already contains a WHERE
};

enum class Sense { Matching, Excluding };

/// Text between a column and its value, and after the value.
struct Comparison {
    QString matching, excluding, end;
};
const Comparison kFrom = {u" >= '"_s, u" < '"_s, u"'"_s};
const Comparison kLike = {u" LIKE '%"_s, u" NOT LIKE '%"_s, u"%'"_s};
const Comparison kEqual = {u" = '"_s, u" <> '"_s, u"'"_s};

struct ItemTerm {
    QString column;
    const Comparison& comparison;
    QString (*value)(const Conditions& conditions);
};

enum TermIndex { kCode, kName, kKana, kDepartment, kSection };

const QList<ItemTerm>& ItemTerms() {
    static const QList<ItemTerm> terms = {
        {u"コード"_s, kFrom, [](const Conditions& c) { return c.code; }},
        {u"氏名"_s, kLike, [](const Conditions& c) { return QuoteSqlText(TrimBlanks(c.name)); }},
        {u"カナ"_s, kLike, [](const Conditions& c) { return QuoteSqlText(c.kana); }},
        {u"部門コード"_s, kEqual, [](const Conditions& c) { return c.departmentCode; }},
        {u"セクションコード"_s, kEqual, [](const Conditions& c) { return c.sectionCode; }},
    };
    return terms;
}

QString Term(const QString& column, const Comparison& comparison, const QString& value, Sense sense) {
    return u"M担当者."_s + column + (sense == Sense::Excluding ? comparison.excluding : comparison.matching) + value +
           comparison.end;
}

/// Staff of office 000, the whole company, are visible to every office.
QString OfficeTerm() {
    return u"(M担当者.事業所コード = '"_s + Globals().ScopeOfficeCode + u"' OR M担当者.事業所コード = '"_s +
           RepeatZero(3) + u"')"_s;
}

/// The list index is the code of the class.
void AddClass(ListStatement& statement, const QString& column, int value, int all, Sense sense) {
    if (value != all) statement.Add(Term(column, kEqual, FormatByMask(value, u"0"_s), sense));
}

QString BuildQuery(const Conditions& conditions, const QList<TermIndex>& terms, const QString& order,
                   Sense sense = Sense::Matching) {
    ListStatement statement;
    const ProgramGlobals& globals = Globals();
    if (!TrimBlanks(globals.ListCondition).isEmpty()) statement.Add(u'(' + globals.ListCondition + u')');
    // The operating office decides whether there is a filter, the scope office which one.
    if (globals.Environment.OperatingOfficeCode != RepeatZero(3)) statement.Add(OfficeTerm());
    for (const TermIndex index : terms) {
        const ItemTerm& term = ItemTerms()[index];
        const QString value = term.value(conditions);
        if (!TrimBlanks(value).isEmpty()) statement.Add(Term(term.column, term.comparison, value, sense));
    }
    AddClass(statement, u"在籍区分"_s, conditions.enrolmentClass, conditions.allEnrolments, sense);
    AddClass(statement, u"社員区分"_s, conditions.employeeClass, conditions.allEmployees, sense);
    return statement.Ordered(order);
}

const QList<TermIndex> kAllTerms = {kCode, kName, kKana, kDepartment, kSection};

}  // namespace

QString BuildListQueryHead() {
    const QString& dialect = Globals().GeneralDatabase.db;
    QString sql =
        u"SELECT TOP 1000"
        " M担当者.コード,M担当者.氏名,M事業所.名称 AS 事業所名,M部門.名称 AS 部門名,Mセクション.名称 AS セクション名"_s;
    if (dialect == u"A" || dialect == u"S")
        sql +=
            u" FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M事業所 RIGHT JOIN M担当者"
            " ON M事業所.コード = M担当者.事業所コード) ON M部門.コード = M担当者.部門コード)"
            " ON Mセクション.コード = M担当者.セクションコード"_s;
    // Dialect O gets TOP as well.
    if (dialect == u"O")
        sql +=
            u" FROM Mセクション,M部門,M事業所,M担当者"
            " WHERE M事業所.コード(+) = M担当者.事業所コード AND M部門.コード(+) = M担当者.部門コード"
            " AND Mセクション.コード(+) = M担当者.セクションコード"_s;
    return sql;
}

QString BuildCodeQuery(const Conditions& conditions) { return BuildQuery(conditions, {kCode}, u"コード"_s); }

QString BuildKanaQuery(const Conditions& conditions) { return BuildQuery(conditions, {kKana}, u"カナ"_s); }

QString BuildNameQuery(const Conditions& conditions) { return BuildQuery(conditions, {kName}, u"氏名"_s); }

QString BuildDepartmentQuery(const Conditions& conditions) {
    return BuildQuery(conditions, {kDepartment}, u"コード"_s);
}

QString BuildSectionQuery(const Conditions& conditions) { return BuildQuery(conditions, {kSection}, u"コード"_s); }

QString BuildCompositeQuery(const Conditions& conditions) { return BuildQuery(conditions, kAllTerms, u"コード"_s); }

QString BuildNegativeQuery(const Conditions& conditions) {
    return BuildQuery(conditions, kAllTerms, u"コード"_s, Sense::Excluding);
}

QString BuildStaffListQuery(int searchKind, const Conditions& conditions) {
    switch (searchKind) {
        case kNegativeSearch:
            return BuildNegativeQuery(conditions);
        case kCompositeSearch:
            return BuildCompositeQuery(conditions);
        case kCodeSearch:
            return BuildCodeQuery(conditions);
        case kKanaSearch:
            return BuildKanaQuery(conditions);
        case kNameSearch:
            return BuildNameQuery(conditions);
        case kDepartmentSearch:
            return BuildDepartmentQuery(conditions);
        case kSectionSearch:
            return BuildSectionQuery(conditions);
        default:
            return {};
    }
}
