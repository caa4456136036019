#include "selection/ConditionStrings.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace {

// Positions are 1-based and 0 means not found. Distances such as 8 and 5 are the lengths of the joiner before a term: "
// WHERE " needs 7 characters before the anchor, " AND " 5, " OR " 4.

struct Operator {
    QString token;
    QString anchor;       ///< its position decides where the cut starts
    QString whereAnchor;  ///< where to cut if the term follows WHERE
};

/// The anchors of >, < and LIKE are those of a >= term of the column. Without one, everything before the term is
/// removed with it. Callers rely on that; they write a single term.
const QList<Operator>& Operators() {
    static const QList<Operator> operators = {
        {u" >= '"_s, u" >= '"_s, u" >= '"_s}, {u" <= '"_s, u" <= '"_s, u" <= '"_s},
        {u" = '"_s, u" = '"_s, u" >= '"_s},   {u" > '"_s, u" >= '"_s, u" >= '"_s},
        {u" < '"_s, u" >= '"_s, u" >= '"_s},  {u" LIKE '"_s, u" >= '"_s, u" >= '"_s},
    };
    return operators;
}

qsizetype Position(const QString& text, const QString& wanted, qsizetype from = 1) {
    return text.indexOf(wanted, qMax<qsizetype>(from, 1) - 1, Qt::CaseInsensitive) + 1;
}

QString Before(const QString& text, qsizetype position) { return text.left(position - 1); }
QString After(const QString& text, qsizetype position) { return text.mid(position); }

/// `end` moved past an " AND " or " OR " that follows immediately.
qsizetype PastJoiner(const QString& condition, qsizetype end) {
    if (Position(condition, u" AND "_s, end) == end + 1) return end + 5;
    if (Position(condition, u" OR "_s, end) == end + 1) return end + 4;
    return end;
}

qsizetype JoinerBefore(const QString& condition, qsizetype anchor) {
    const qsizetype conjunction = Position(condition, u" AND "_s, anchor - 5);
    return conjunction > 0 ? conjunction : Position(condition, u" OR "_s, anchor - 4);
}

/// First removed position; 1 removes everything before `end`. Moves `end` past the joiner if the term is the first one.
qsizetype CutStart(const QString& column, const Operator& used, const QString& condition, qsizetype& end) {
    const qsizetype anchor = Position(condition, column + used.anchor);
    qsizetype cut = 1;
    if (anchor >= 8 && Position(condition, u" WHERE "_s, anchor - 7) > 0) {
        cut = Position(condition, column + used.whereAnchor);
        end = PastJoiner(condition, end);
    } else if (anchor >= 6) {
        cut = JoinerBefore(condition, anchor);
    } else if (anchor == 5) {
        cut = Position(condition, u" OR "_s, anchor - 4);
    } else if (anchor == 1) {
        end = PastJoiner(condition, end);
    }
    return qMax<qsizetype>(cut, 1);
}

QString Rest(const QString& condition, qsizetype cut, qsizetype end) {
    if (cut == 1) return After(condition, end);
    const qsizetype bracket = Position(condition, u"("_s, cut);
    const bool opensInside = bracket > cut && bracket < end;
    return Before(condition, cut) + After(condition, opensInside ? Position(condition, u")"_s, end) : end);
}

}  // namespace

QString ExtractCondition(const QString& column, const QString& condition, QString& rest) {
    for (const Operator& used : Operators()) {
        const QString term = column + used.token;
        const qsizetype place = Position(condition, term);
        if (place == 0) continue;
        const qsizetype first = place + term.size();
        const qsizetype quote = Position(condition, u"'"_s, first);
        const QString value = quote > 0 ? condition.mid(first - 1, quote - first) : QString();
        qsizetype end = quote;
        const qsizetype cut = CutStart(column, used, condition, end);
        rest = Rest(condition, cut, end);
        return used.token == u" LIKE '" ? RemovePercent(value) : value;
    }
    return {};
}

QString RemovePercent(const QString& text) { return QString(text).remove(u'%'); }
