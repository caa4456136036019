#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "database/DatabaseSession.h"

namespace database {

/// The record that a recordset is adding, or has added last.
class NewRecord {
  public:
    /// The record's columns are those of `target`'s query. It notices when the session is gone.
    NewRecord(std::weak_ptr<DatabaseSession> session, UpdatableResult result);

    /// From Begin until a WriteToTable that succeeds.
    bool InWork() const { return inWork_; }
    /// True from the first Begin on: there is a record to read.
    bool Exists() const { return exists_; }

    void Begin();
    void Write(int column, const QString& value);
    void WriteToTable();
    /// The record as the only row of a result; stands until the next write.
    const ResultTable& AsTable();

  private:
    std::weak_ptr<DatabaseSession> session_;
    std::shared_ptr<RecordTarget> target_;
    std::shared_ptr<ResultTable> rows_;
    std::vector<WrittenField> written_;  // each column once
    std::vector<int> places_;            // of each column in written_, -1 while nobody wrote it
    std::unique_ptr<ResultTable> view_;
    bool inWork_ = false;
    bool exists_ = false;
};

}  // namespace database
