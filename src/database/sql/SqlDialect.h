#pragma once

#include <QList>
#include <QString>

#include "database/DatabaseTypes.h"

namespace database {

/// How to write a LIKE that ignores letter case, width and kana type.
enum class LikeWriting {
    Own,               ///< unchanged: the engine's LIKE is replaced by the suite's
    FoldedText,        ///< LIKE over the folding function; patterns with lists as a regular expression
    RegularExpression  ///< regular expression that lists every variant of each character
};

/// SQL dialect of an engine, as its differences from the suite's dialect.
struct SqlDialect {
    bool topIsLimit = false;          ///< "SELECT TOP n ..." becomes "SELECT ... LIMIT n"
    bool flattenRightJoins = false;   ///< nested RIGHT JOINs become a chain of LEFT JOINs
    bool bracketQuotedNames = false;  ///< [name] becomes "name"
    size_t longestChain = 0;          ///< most terms of an OR or AND chain that the engine accepts
    QString textCollation = {};       ///< for ORDER BY on columns sorted as text; empty: the engine needs none
    QString caseBlindCollation = {};  ///< for a column in an "=" that ignores ASCII case

    bool namesAreLowerCase = false;  ///< quoted names are lower-cased, as the engine does with plain names
    bool nullsSortLast = false;      ///< ORDER BY must place Nulls first, or last if descending
    bool hasPlusOuterJoin = false;   ///< "x.a(+) = y.b" in WHERE becomes a LEFT JOIN
    LikeWriting like = LikeWriting::Own;
    QString foldingFunction = {};  ///< for LikeWriting::FoldedText
    QString orderFunction = {};    ///< for columns sorted as text, instead of a collation
    bool sortsOnClient = false;    ///< the reader sorts the rows if a key is sorted as text
    /// For an "=" that ignores ASCII case, instead of a collation: applied to both sides in place of `operand`.
    QString caseBlindCall = {};
};

struct AdaptedStatement {
    QString text;
    /// Keys for the caller to sort by; their values are the last columns of the result, one per key. Empty if the
    /// engine returns the rows in order.
    QList<SortKey> order;
    int limit = -1;  ///< rows to keep after sorting; negative: all
};

}  // namespace database
