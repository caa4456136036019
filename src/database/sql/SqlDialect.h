#pragma once

#include <QList>
#include <QString>

namespace database {

/// How LIKE is written so that letter case, width and kana type don't count.
enum class LikeWriting {
    Own,               ///< as it is: the engine's LIKE was replaced by the suite's
    FoldedText,        ///< LIKE over the folding function; lists as a regular expression over it
    RegularExpression  ///< a regular expression that names every form of each character
};

/// Where an engine's way of writing differs from the suite's statements.
struct SqlDialect {
    bool topIsLimit = false;          ///< "SELECT TOP n ..." is written "SELECT ... LIMIT n"
    bool flattenRightJoins = false;   ///< nested RIGHT JOINs become a chain of LEFT JOINs
    bool bracketQuotedNames = false;  ///< [name] is written "name"
    size_t longestChain = 0;          ///< terms of one OR or AND chain that the engine takes without trouble
    QString textCollation = {};  ///< behind ORDER BY on the columns sorted as text; empty: the engine sorts them so
    QString caseBlindCollation = {};  ///< after a column of an "=" that ignores the case of ASCII letters

    bool namesAreLowerCase = false;  ///< names in quotes or brackets count as the plain ones, which lose their capitals
    bool nullsSortLast = false;      ///< ORDER BY has to say that Nulls come first, and last where it descends
    bool hasPlusOuterJoin = false;   ///< "x.a(+) = y.b" in a WHERE becomes a LEFT JOIN
    LikeWriting like = LikeWriting::Own;
    QString foldingFunction = {};  ///< for LikeWriting::FoldedText
    QString orderFunction = {};    ///< around columns sorted as text, in place of a collation
    bool sortsOnClient = false;    ///< rows are put in order by whoever reads them, where they are sorted as text
    /// In place of a collation, for both sides of such an "=": an expression with each side in place of `operand`.
    QString caseBlindCall = {};
};

/// One key of an order that the engine doesn't make.
struct ProviderKey {
    bool asText;  ///< as CompareTexts does; otherwise by bytes
    bool descending;
};

struct AdaptedStatement {
    QString text;
    /// Keys by which the rows have to be sorted still: their values stand in columns behind those of the statement,
    /// one for each. Empty where the rows come in their order.
    QList<ProviderKey> order;
    int limit = -1;  ///< rows that count when they are sorted; below 0 all of them
};

}  // namespace database
