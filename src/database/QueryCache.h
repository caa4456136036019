#pragma once

#include <QHash>
#include <QString>
#include <memory>

#include "database/ResultTable.h"
#include "database/sqlite/PreparedStatements.h"

namespace database {

/// Small results of one read scope, by the whole text of their statement. Inside a scope an equal statement can
/// have no other result.
class QueryCache {
  public:
    static constexpr qsizetype kMostEntries = 20000;
    static constexpr qsizetype kMostBytes = qsizetype{16} * 1024 * 1024;
    static constexpr qsizetype kLargestResult = 4096;  // bytes

    /// Null when nothing is known.
    std::shared_ptr<ResultTable> Find(const QString& sql);
    /// Remembers what is small enough, until the bounds are reached, and as long as that pays for the statement
    /// with this use: a statement that never comes twice would only push out the others.
    void Keep(const QString& sql, const std::shared_ptr<ResultTable>& result, const std::shared_ptr<StatementUse>& use);
    void Forget();

  private:
    struct Entry {
        std::shared_ptr<ResultTable> result;
        std::shared_ptr<StatementUse> use;
    };
    QHash<QString, Entry> entries_;
    qsizetype bytes_ = 0;
};

}  // namespace database
