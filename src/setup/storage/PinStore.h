#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "database/Database.h"
#include "setup/storage/PinColumns.h"

namespace setup {

/// A non-empty PIN and the key values that identify its row.
struct StoredPin {
    QStringList row;
    QString text;
};

/// Reads and writes the PINs of one general database in one transaction, which the destructor rolls back unless it was
/// committed. All members throw database::DatabaseError.
class PinStore {
  public:
    virtual ~PinStore() = default;
    /// Locks out concurrent runs, provided that there is any PIN.
    virtual void Begin() = 0;
    virtual QList<StoredPin> Pins(const PinColumn& place) = 0;
    virtual void Replace(const PinColumn& place, const StoredPin& pin, const QString& text) = 0;
    virtual void Commit() = 0;
    /// True if it is certain that nothing was committed and that no other run has begun since Begin.
    virtual bool StillLocked() const = 0;
};

using PinStoreOpener = std::function<std::unique_ptr<PinStore>()>;

/// For a database file.
std::unique_ptr<PinStore> OpenFilePins(const QString& file);
/// For a database on a server; `connection` is open for writing.
std::unique_ptr<PinStore> MakeServerPins(database::Connection connection);

/// Reads the non-empty PINs of one column; `row` gets the values of the table's key. `suffix` is appended to the
/// statement.
QList<StoredPin> ReadPins(database::Connection& connection, const PinColumn& place, const QString& suffix = {});

}  // namespace setup
