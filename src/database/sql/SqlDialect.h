#pragma once

#include <QList>
#include <QString>

#include "database/DatabaseTypes.h"

namespace database {

/// How to write a LIKE that ignores letter case, width and kana type. `Own` also identifies the desktop engine: every
/// other value means a server, whose own LIKE and text order must not be used.
enum class LikeWriting {
    Own,               ///< unchanged: the engine's LIKE is replaced by the suite's
    FoldedText,        ///< LIKE over the folding function; patterns with lists as a regular expression
    RegularExpression  ///< regular expression that lists every variant of each character
};

/// SQL dialect of an engine: the differences from the suite's SQL, applied by Adapt (StatementAdapter.h).
struct SqlDialect {
    bool topIsLimit = false;          ///< "SELECT TOP n ..." becomes "SELECT ... LIMIT n"
    bool flattenRightJoins = false;   ///< nested RIGHT JOINs become a chain of LEFT JOINs
    bool bracketQuotedNames = false;  ///< [name] becomes "name"
    size_t longestChain = 0;          ///< longer OR and AND chains are bracketed (BalanceChains)
    QString textCollation = {};       ///< for ORDER BY on columns sorted as text; empty: the engine needs none
    QString caseBlindCollation = {};  ///< for a column in an "=" that ignores ASCII case

    bool namesAreLowerCase = false;  ///< quoted names are lower-cased, as the engine does with plain names
    bool nullsSortLast = false;      ///< the engine's default; ORDER BY gets NULLS FIRST, or LAST if descending
    bool hasPlusOuterJoin = false;   ///< "x.a(+) = y.b" in WHERE becomes a LEFT JOIN
    LikeWriting like = LikeWriting::Own;
    QString foldingFunction = {};  ///< for LikeWriting::FoldedText
    QString orderFunction = {};    ///< for columns sorted as text, instead of a collation
    bool sortsOnClient = false;    ///< rows are sorted by SortRows if a key is sorted as text
    /// For an "=" that ignores ASCII case, instead of a collation: an expression with the placeholder `operand`, by
    /// which both sides are replaced.
    QString caseBlindCall = {};
};

/// A translated statement, and what is left to do for the caller.
struct AdaptedStatement {
    QString text;
    /// Keys for SortRows; their values are the last columns of the result, one per key. Empty if the engine returns the
    /// rows in order.
    QList<SortKey> order;
    int limit = -1;  ///< rows to keep after sorting; negative: all
};

}  // namespace database
