#pragma once

#include <QString>
#include <QStringList>

#include "database/sqlite/SqliteHandle.h"

namespace report {

/// Snapshot of the rows of one report: the next output may clear the work table while a preview of this one is still
/// open. Stored in an anonymous temporary SQLite database, which is deleted with the object, so that memory use does
/// not depend on the number of rows.
class ReportRowStore {
  public:
    /// Copies `columns` of all rows of `table`, sorted by the columns in `order`; in table order if that is empty.
    /// `source` is not used after the constructor. Throws database::DatabaseError.
    ReportRowStore(sqlite3* source, const QString& table, const QStringList& columns, const QStringList& order);

    int Count() const { return count_; }
    /// Values of a row (from 0) in the order of `columns`; Null as empty text. Throws database::DatabaseError.
    QStringList Row(int row);

  private:
    void Copy(sqlite3* source, const QString& select);

    database::SqliteDatabase database_;
    database::SqliteStatement read_;
    int width_;
    int count_ = 0;
};

}  // namespace report
