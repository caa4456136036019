#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "database/DatabaseTypes.h"
#include "database/sql/SyntaxTree.h"

namespace database {

/// One column of a SELECT: its expression, and the name that AS or a word after it gives.
struct SelectItem {
    size_t first = 0, end = 0;  ///< pieces of the expression
    QString alias;              ///< empty without one
    bool all = false;           ///< "*" or "t.*"
};

/// The columns of the first SELECT at or after `begin`; empty where the level has none.
std::vector<SelectItem> SelectItemsOf(const NodeList& level, size_t begin = 0);

/// True where the pieces are one column with or without its table.
bool IsColumnName(const NodeList& level, size_t first, size_t end);

/// The names under which a statement has the columns that are sorted as text: those of the rules, and aliases of
/// expressions that use them.
class TextNames {
  public:
    TextNames(const NodeList& statement, const TextRules& rules);

    bool IsListed(const Node& piece) const { return IsColumnOf(listed_, piece); }
    bool IsRenamed(const Node& piece) const { return IsColumnOf(renamed_, piece); }
    /// True where one of the names is used by the pieces, or inside their brackets.
    bool Uses(const NodeList& level, size_t first, size_t end) const;

  private:
    void Collect(const NodeList& level);
    void CollectAliases(const NodeList& level);
    void Rename(const QString& name);
    void CollectColumnList(const NodeList& level, size_t query);

    QStringList listed_, renamed_;
};

}  // namespace database
