#pragma once

#include <QList>
#include <QString>
#include <map>
#include <vector>

#include "database/DatabaseSession.h"
#include "database/sqlite/SqliteHandle.h"

namespace database {

/// A table that records are inserted into. Caches one prepared INSERT per set of columns written so far, since naming a
/// column that was not set would override its default.
class InsertTarget : public RecordTarget {
  public:
    /// The table that the columns of `query` come from. Throws DatabaseError kNotUpdatable if they are not all columns
    /// of one table.
    InsertTarget(sqlite3* database, sqlite3_stmt* query);

    /// Inserts one record. Throws DatabaseError.
    void Insert(const std::vector<WrittenField>& fields);

  private:
    QString InsertText(const std::vector<WrittenField>& fields) const;
    SqliteStatement Prepare(const QString& sql) const;
    sqlite3_stmt* StatementFor(const std::vector<WrittenField>& fields);

    sqlite3* database_;
    QString table_;
    QList<QString> columns_;  // quoted names, by column of the query
    std::map<std::vector<int>, SqliteStatement> statements_;
    std::vector<int> lastPlaces_;
    sqlite3_stmt* last_ = nullptr;
};

}  // namespace database
