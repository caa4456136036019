#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "database/DatabaseSession.h"

namespace database {

/// The record that a Recordset is adding, or has added last. Columns are numbered as in the recordset's result.
class NewRecord {
  public:
    /// `result`: from QueryForUpdate of `session`.
    NewRecord(std::weak_ptr<DatabaseSession> session, UpdatableResult result);

    /// True from Begin until WriteToTable succeeds.
    bool IsPending() const { return pending_; }
    /// True from Begin until Leave: the record can be read.
    bool Exists() const { return exists_; }

    /// Starts a record with all fields Null. A record still being added is written first (WriteToTable).
    void Begin();
    /// Sets a field. Only while the record is being added.
    void Write(int column, const QString& value);
    /// Inserts the record. Throws DatabaseError, kObjectClosed if the session no longer exists; the record is then
    /// still being added.
    void WriteToTable();
    /// Ends reading the record. A record still being added is written first (WriteToTable).
    void Leave();
    /// The record as a result of one row; valid until the next Begin or Write. Only while Exists().
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
