#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace setup {

/// Tables made by another program, to be read.
class ForeignTables {
  public:
    virtual ~ForeignTables() = default;
    /// The user tables, as they are spelled.
    virtual QStringList Tables() const = 0;
    /// Columns of one of them, in their order.
    virtual QStringList Columns(const QString& table) const = 0;
    /// Every row, with its values in the order of the columns; a Null is a null QString. Throws platform::RuntimeError.
    virtual void ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const = 0;
    /// Called after the last row, before anything read is committed. Throws platform::RuntimeError if the tables have
    /// changed while they were read.
    virtual void CheckUnchanged() const {}
};

}  // namespace setup
