#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "database/Database.h"
#include "setup/storage/PinColumns.h"

namespace setup {

/// A PIN that is not empty, and what finds its row again.
struct StoredPin {
    QStringList row;
    QString text;
};

/// The PINs of one general database, read and written in one transaction, which is rolled back at its end unless it was
/// committed. Everything throws database::DatabaseError.
class PinStore {
  public:
    virtual ~PinStore() = default;
    /// From here on another sealing waits, if there is any PIN.
    virtual void Begin() = 0;
    virtual QList<StoredPin> Pins(const PinColumn& place) = 0;
    virtual void Replace(const PinColumn& place, const StoredPin& pin, const QString& text) = 0;
    virtual void Commit() = 0;
    /// True where it is certain that nothing was committed and that no other sealing has begun since Begin.
    virtual bool StillLocked() const = 0;
};

using PinStoreOpener = std::function<std::unique_ptr<PinStore>()>;

/// A database file.
std::unique_ptr<PinStore> OpenFilePins(const QString& file);
/// A database on a server; `connection` is open for writing.
std::unique_ptr<PinStore> MakeServerPins(database::Connection connection);

/// The PINs of one column over any connection to a general database; `row` holds the values of the table's key.
/// `suffix` follows the statement.
QList<StoredPin> ReadPins(database::Connection& connection, const PinColumn& place, const QString& suffix = {});

}  // namespace setup
