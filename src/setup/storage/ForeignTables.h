#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace setup {

/// Read access to tables made by another program.
class ForeignTables {
  public:
    virtual ~ForeignTables() = default;
    /// Names of the user tables in their original spelling.
    virtual QStringList Tables() const = 0;
    /// Columns of one of these tables, in order.
    virtual QStringList Columns(const QString& table) const = 0;
    /// Calls `take` with the values of each row in the order of the columns; a Null is a null QString. Throws
    /// platform::RuntimeError.
    virtual void ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const = 0;
    /// Call after the last row, before committing anything that was read. Throws platform::RuntimeError if the tables
    /// changed while they were read.
    virtual void CheckUnchanged() const {}
};

}  // namespace setup
