#pragma once

#include <QHash>
#include <QString>
#include <memory>

#include "database/ResultTable.h"
#include "database/sqlite/PreparedStatements.h"

namespace database {

/// Cache of small query results within one read scope, keyed by the full statement. Valid because the scope is one
/// snapshot.
class QueryCache {
  public:
    static constexpr qsizetype kMostEntries = 20000;
    static constexpr qsizetype kMostBytes = qsizetype{16} * 1024 * 1024;
    static constexpr qsizetype kLargestResult = 4096;  // bytes

    /// The result of an equal statement; null if it is not cached.
    std::shared_ptr<ResultTable> Find(const QString& sql);
    /// Caches the result if it is small enough and the cache is not full. `use` counts the hits of all statements that
    /// differ in literals only: if they are too rare, nothing more is cached, since statements that never repeat would
    /// only fill the cache.
    void Keep(const QString& sql, const std::shared_ptr<ResultTable>& result, const std::shared_ptr<StatementUse>& use);
    /// Empties the cache. To be called at the end of the scope.
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
