#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "database/DatabaseSession.h"

namespace database {

/// The record that a recordset is adding, or added last.
class NewRecord {
  public:
    /// Columns are those of `result`. Writing throws kObjectClosed if the session no longer exists.
    NewRecord(std::weak_ptr<DatabaseSession> session, UpdatableResult result);

    /// True from Begin until WriteToTable succeeds.
    bool IsPending() const { return pending_; }
    /// True from Begin until Leave: the record can be read.
    bool Exists() const { return exists_; }

    /// Starts a record with all fields Null, after WriteToTable for one still being added.
    void Begin();
    void Write(int column, const QString& value);
    /// Throws DatabaseError; the record is then still being added.
    void WriteToTable();
    /// Ends reading, after WriteToTable for a record still being added.
    void Leave();
    /// The record as a result of one row; valid until the next write.
    const ResultTable& AsTable();

  private:
    std::weak_ptr<DatabaseSession> session_;
    std::shared_ptr<RecordTarget> target_;
    std::shared_ptr<ResultTable> rows_;
    std::vector<WrittenField> written_;  // each column once
    std::vector<int> places_;            // index of each column in written_, -1 if not set
    std::unique_ptr<ResultTable> view_;
    bool pending_ = false;
    bool exists_ = false;
};

}  // namespace database
