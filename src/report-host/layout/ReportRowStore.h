#pragma once

#include <QString>
#include <QStringList>

#include "database/sqlite/SqliteHandle.h"

namespace report {

/// The rows of one report as they were when it was prepared: the next output may empty the work table while a preview
/// of this one is still on the screen. They lie in a file of the engine's own that nobody else sees and that goes with
/// this object, so memory does not grow with them.
class ReportRowStore {
  public:
    /// Copies the columns of all rows, ordered by the columns in `order`, otherwise as they were written. The source is
    /// closed afterwards. Throws database::DatabaseError.
    ReportRowStore(sqlite3* source, const QString& table, const QStringList& columns, const QStringList& order);

    int Count() const { return count_; }
    /// The values of a row, in the order of the columns; Null is empty. Rows count from 0.
    QStringList Row(int row);

  private:
    void Copy(sqlite3* source, const QString& select);

    database::SqliteDatabase spool_;
    database::SqliteStatement read_;
    int width_;
    int count_ = 0;
};

}  // namespace report
