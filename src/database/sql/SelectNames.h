#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "database/DatabaseTypes.h"
#include "database/sql/SyntaxTree.h"

namespace database {

/// One column of a SELECT: its expression, and its alias with or without AS.
struct SelectItem {
    size_t first = 0, end = 0;  ///< nodes of the expression
    QString alias;              ///< empty if there is none
    bool all = false;           ///< "*" or "t.*"
};

/// Columns of the first SELECT at or after index `begin`; empty if the level has none.
std::vector<SelectItem> SelectItemsOf(const NodeList& level, size_t begin = 0);

/// True if the nodes are a single column name, with or without its table.
bool IsColumnName(const NodeList& level, size_t first, size_t end);

/// Names by which a statement refers to the columns sorted as text: those of the rules (listed), and aliases of
/// expressions over them (renamed).
class TextNames {
  public:
    TextNames(const NodeList& statement, const TextRules& rules);

    bool IsListed(const Node& piece) const { return IsColumnOf(listed_, piece); }
    bool IsRenamed(const Node& piece) const { return IsColumnOf(renamed_, piece); }
    /// True if the value of the nodes may depend on the order of a text: if they, or brackets inside them, contain one
    /// of the names, except as the argument of COUNT.
    bool Uses(const NodeList& level, size_t first, size_t end) const;

  private:
    void Collect(const NodeList& level);
    void CollectAliases(const NodeList& level);
    void Rename(const QString& name);
    void CollectColumnList(const NodeList& level, size_t query);

    QStringList listed_, renamed_;
};

/// One item of an ORDER BY; positions are indexes of nodes.
struct OrderItem {
    size_t first = 0, expressionEnd = 0;  ///< the expression
    size_t end = 0;                       ///< after ASC or DESC
    bool asText = false;                  ///< sorted by the suite's collation; `column` is set
    bool descending = false;
    bool placesNulls = false;  ///< has NULLS FIRST or NULLS LAST
    NodeList column;           ///< the column it refers to by name, alias or position; else empty
};

/// True if an ORDER BY begins at `at`.
bool IsOrder(const NodeList& level, size_t at);

/// Items of the ORDER BY at index `order`. Throws DatabaseError kStatementFailure if an item other than a plain column
/// may have to be sorted as text.
std::vector<OrderItem> ReadOrder(const NodeList& level, size_t order, const TextNames& names);

/// Throws that error.
[[noreturn]] void RefuseOrder();

}  // namespace database
