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

    /// Null if not cached.
    std::shared_ptr<ResultTable> Find(const QString& sql);
    /// Caches the result if it is small enough, the cache is not full, and `use` shows enough hits for this kind of
    /// statement; statements that never repeat would only fill the cache.
    void Keep(const QString& sql, const std::shared_ptr<ResultTable>& result, const std::shared_ptr<StatementUse>& use);
    /// To be called at the end of the scope.
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
