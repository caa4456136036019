#pragma once

#include <QList>
#include <QString>
#include <map>
#include <vector>

#include "database/DatabaseSession.h"
#include "database/sqlite/SqliteHandle.h"

namespace database {

/// A table that records are added to. One prepared statement stands for each set of columns that records have
/// written so far: columns that nobody writes must not be named, or they would lose their default.
class InsertTarget : public RecordTarget {
  public:
    /// The table behind the columns of `query`. kNotUpdatable where they are not all columns of one table.
    InsertTarget(sqlite3* database, sqlite3_stmt* query);

    void Insert(const std::vector<WrittenField>& fields);

  private:
    QString InsertText(const std::vector<WrittenField>& fields) const;
    SqliteStatement Prepare(const QString& sql) const;
    sqlite3_stmt* StatementFor(const std::vector<WrittenField>& fields);

    sqlite3* database_;
    QString table_;
    QList<QString> columns_;  // quoted, by place in the query
    std::map<std::vector<int>, SqliteStatement> statements_;
    std::vector<int> lastPlaces_;
    sqlite3_stmt* last_ = nullptr;
};

}  // namespace database
