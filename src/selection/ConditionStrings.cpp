#include "selection/ConditionStrings.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace {

// Positions count from 1 here, and 0 means nowhere, as in the conditions' own arithmetic: a distance of 8 or 5 from an
// anchor is the room that a word in front of it takes.

struct Operator {
    QString token;
    QString anchor;      ///< of the term's place
    QString afterWhere;  ///< of the place to cut at behind WHERE
};

/// The anchors of >, < and LIKE look for a >= term of the column. Where there is none they are nowhere, and then
/// everything in front of the term goes with it. Callers rely on it: one term is what they write.
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
QString Behind(const QString& text, qsizetype position) { return text.mid(position); }

/// The end of the term, moved past " AND " or " OR " where one follows at once.
qsizetype PastJoiner(const QString& condition, qsizetype end) {
    if (Position(condition, u" AND "_s, end) == end + 1) return end + 5;
    if (Position(condition, u" OR "_s, end) == end + 1) return end + 4;
    return end;
}

qsizetype JoinerBefore(const QString& condition, qsizetype anchor) {
    const qsizetype conjunction = Position(condition, u" AND "_s, anchor - 5);
    return conjunction > 0 ? conjunction : Position(condition, u" OR "_s, anchor - 4);
}

/// Where the removed part begins, 1 for the whole beginning. Moves `end` past the joiner where the term stands first.
qsizetype CutStart(const QString& column, const Operator& used, const QString& condition, qsizetype& end) {
    const qsizetype anchor = Position(condition, column + used.anchor);
    qsizetype cut = 1;
    if (anchor >= 8 && Position(condition, u" WHERE "_s, anchor - 7) > 0) {
        cut = Position(condition, column + used.afterWhere);
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
    if (cut == 1) return Behind(condition, end);
    const qsizetype bracket = Position(condition, u"("_s, cut);
    const bool opensInside = bracket > cut && bracket < end;
    return Before(condition, cut) + Behind(condition, opensInside ? Position(condition, u")"_s, end) : end);
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
