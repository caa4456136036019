#pragma once

#include <QHash>
#include <QString>
#include <functional>
#include <list>
#include <memory>

#include "database/ResultTable.h"
#include "database/sqlite/SqliteHandle.h"

namespace database {

/// How often remembering the results of a statement has paid.
struct StatementUse {
    quint32 remembered = 0;
    quint32 answered = 0;
};

/// A statement ready to run, with what is known of its result.
class PreparedStatement {
  public:
    /// `text` is in the engine's own words. DatabaseError where the engine refuses it or it isn't one statement.
    PreparedStatement(sqlite3* database, const QString& text);

    sqlite3_stmt* Handle() const { return handle_.get(); }
    /// Columns of the result; to be asked for behind the first step, for the engine prepares again by itself when
    /// the schema has changed.
    const std::shared_ptr<const ColumnSet>& Columns();
    /// One result without rows for all times.
    const std::shared_ptr<ResultTable>& EmptyResult();

    std::shared_ptr<StatementUse> use = std::make_shared<StatementUse>();

  private:
    void DescribeColumns();

    SqliteStatement handle_;
    std::shared_ptr<const ColumnSet> columns_;
    std::shared_ptr<ResultTable> empty_;
    int preparations_ = 0;
};

/// The statements used last, by their text without literals.
class PreparedStatements {
  public:
    static constexpr int kMost = 64;
    static constexpr qsizetype kLongestText = 16384;  // the rare giant is not worth its memory

    /// The statement kept under `text`, else the one that `prepare` makes. Valid until the next call.
    PreparedStatement& Get(const QString& text, const std::function<PreparedStatement()>& prepare);
    void Clear();

  private:
    struct Entry {
        QString text;
        PreparedStatement statement;
    };
    std::list<Entry> entries_;  // the one used last in front
    QHash<QString, std::list<Entry>::iterator> byText_;
    std::unique_ptr<PreparedStatement> giant_;
};

}  // namespace database
