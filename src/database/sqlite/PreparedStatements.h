#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <vector>

#include "database/DatabaseSession.h"
#include "database/ResultTable.h"
#include "database/sqlite/SqliteHandle.h"

namespace database {

/// Statistics of QueryCache for all statements that differ in literals only, to decide whether their results are worth
/// caching.
struct StatementUse {
    quint32 cached = 0;  ///< results stored
    quint32 hits = 0;    ///< results found
};

/// A prepared statement and metadata of its result.
class PreparedStatement {
  public:
    /// `text` is in the engine's syntax. Throws DatabaseError if the engine rejects it or if it is not exactly one
    /// statement.
    PreparedStatement(sqlite3* database, const QString& text);

    sqlite3_stmt* Handle() const { return handle_.get(); }
    /// Columns of the result. To be called after the first step, since the engine re-prepares the statement there if
    /// the schema has changed.
    const std::shared_ptr<const ColumnSet>& Columns();
    /// An empty result, shared by all runs that return no rows.
    const std::shared_ptr<ResultTable>& EmptyResult();

    std::shared_ptr<StatementUse> use = std::make_shared<StatementUse>();

  private:
    void DescribeColumns();

    SqliteStatement handle_;
    std::shared_ptr<const ColumnSet> columns_;
    std::shared_ptr<ResultTable> empty_;
    int preparations_ = 0;
};

/// LRU cache of prepared statements, keyed by their text without literals.
class PreparedStatements {
  public:
    static constexpr int kMost = 64;
    static constexpr qsizetype kLongestText = 16384;  // longer statements are rare and use too much memory

    /// The cached statement for `text`, or the one that `prepare` creates and that is then cached. Valid until the next
    /// Get or Clear. Throws what `prepare` throws.
    PreparedStatement& Get(const QString& text, const std::function<PreparedStatement()>& prepare);
    void Clear();

  private:
    struct Entry {
        QString text;
        PreparedStatement statement;
    };
    std::list<Entry> entries_;  // most recently used first
    QHash<QString, std::list<Entry>::iterator> byText_;
    std::unique_ptr<PreparedStatement> giant_;  // the last statement that was too long for the cache
};

/// A table that records are inserted into. Caches one prepared INSERT per set of columns written so far, since naming a
/// column that was not set would override its default.
class InsertTarget : public RecordTarget {
  public:
    /// For the table that the columns of the prepared SELECT `query` come from. Throws DatabaseError kNotUpdatable if
    /// they are not all columns of one table.
    InsertTarget(sqlite3* database, sqlite3_stmt* query);

    /// Inserts one record; columns not in `fields` get their default. Throws DatabaseError.
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
