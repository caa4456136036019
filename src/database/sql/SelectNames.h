#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "database/DatabaseTypes.h"
#include "database/sql/SyntaxTree.h"

namespace database {

// Columns of a SELECT and items of its ORDER BY. All positions are indexes of nodes in the level that contains the
// SELECT; ranges are `first` to `end` - 1.

/// One column of a SELECT: its expression, and its alias with or without AS.
struct SelectItem {
    size_t first = 0, end = 0;  ///< the expression
    QString alias;              ///< empty if there is none
    bool all = false;           ///< "*" or "t.*"
};

/// Columns of the first SELECT at or after `begin`; empty if the level has none.
std::vector<SelectItem> SelectItemsOf(const NodeList& level, size_t begin = 0);

/// True if the nodes are a single column name, with or without its table.
bool IsColumnName(const NodeList& level, size_t first, size_t end);

/// Names by which a statement refers to columns sorted as text (TextRules::sortedAsText): the columns themselves
/// (listed), and aliases of expressions that contain them (renamed).
class TextNames {
  public:
    /// Collects the aliases of the whole statement.
    TextNames(const NodeList& statement, const TextRules& rules);

    bool IsListed(const Node& piece) const { return IsColumnOf(listed_, piece); }
    bool IsRenamed(const Node& piece) const { return IsColumnOf(renamed_, piece); }
    /// True if the nodes, or brackets among them, contain one of the names, except as the argument of COUNT: their
    /// value may then be a text to be sorted in the suite's order.
    bool Uses(const NodeList& level, size_t first, size_t end) const;

  private:
    void Collect(const NodeList& level);
    void CollectAliases(const NodeList& level);
    void Rename(const QString& name);
    void CollectColumnList(const NodeList& level, size_t query);

    QStringList listed_, renamed_;
};

/// One item of an ORDER BY.
struct OrderItem {
    size_t first = 0, expressionEnd = 0;  ///< the expression
    size_t end = 0;                       ///< after ASC or DESC
    bool asText = false;                  ///< to be sorted in the suite's order; `column` is set
    bool descending = false;
    bool placesNulls = false;  ///< has NULLS FIRST or NULLS LAST
    NodeList column;           ///< the column that it names by name, alias or position; empty for an expression
};

/// True if an ORDER BY begins at `at`.
bool IsOrder(const NodeList& level, size_t at);

/// Items of the ORDER BY at `order`. Throws what RefuseOrder throws if an item other than a column may have to be
/// sorted as text.
std::vector<OrderItem> ReadOrder(const NodeList& level, size_t order, const TextNames& names);

/// Throws DatabaseError kStatementFailure: this ORDER BY can't be translated for a server.
[[noreturn]] void RefuseOrder();

}  // namespace database
