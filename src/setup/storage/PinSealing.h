#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <array>
#include <functional>
#include <memory>

#include "database/Database.h"

namespace setup {

/// A column that contains PINs.
struct PinColumn {
    QStringView table;
    QStringView column;
};

/// All columns of the general database that contain PINs.
inline constexpr std::array kPinColumns = {
    PinColumn{u"M担当者", u"暗証番号"},
    PinColumn{u"Mユーザ", u"特権暗証番号"},
    PinColumn{u"Mユーザ", u"システム特権暗証番号"},
    PinColumn{u"M事業所", u"特権暗証番号"},
};

/// A non-empty PIN and its row.
struct StoredPin {
    QStringList row;  ///< what identifies the row: its rowid in a file, the values of the table's key on a server
    QString text;     ///< as stored, encrypted or in clear text
};

/// Reads and writes the PINs of one general database in one transaction, which the destructor rolls back unless it was
/// committed. All members throw database::DatabaseError.
class PinStore {
  public:
    virtual ~PinStore() = default;
    /// Begins the transaction and locks out concurrent runs; on a server only if there is any PIN.
    virtual void Begin() = 0;
    /// The non-empty PINs of a column.
    virtual QList<StoredPin> Pins(const PinColumn& place) = 0;
    /// Replaces the text of a PIN.
    virtual void Replace(const PinColumn& place, const StoredPin& pin, const QString& text) = 0;
    virtual void Commit() = 0;
    /// True if it is certain that nothing was committed and that no other run has begun since Begin.
    virtual bool StillLocked() const = 0;
};

/// Opens the store again for each call.
using PinStoreOpener = std::function<std::unique_ptr<PinStore>()>;

/// For a database file. Throws database::DatabaseError.
std::unique_ptr<PinStore> OpenFilePins(const QString& file);
/// For a database on a server; `connection` is open for writing.
std::unique_ptr<PinStore> MakeServerPins(database::Connection connection);

/// Reads the non-empty PINs of one column; `row` gets the values of the table's key. `suffix` is appended to the
/// statement. Throws database::DatabaseError.
QList<StoredPin> ReadPins(database::Connection& connection, const PinColumn& place, const QString& suffix = {});

/// Counts of a run.
struct SealedCount {
    int sealed = 0;      ///< were in clear text
    int before = 0;      ///< already encrypted, and decrypt with the key
    int unopenable = 0;  ///< encrypted with another key; left unchanged
};

/// Encrypts every clear-text PIN of a general database in one transaction, and creates the key file if there is none.
/// On failure nothing is changed, unless the commit succeeded and only its reply was lost. A new key file is removed on
/// failure, unless a PIN decrypts with it or the database can't be read any more; the next run uses a key file that
/// stayed. Throws platform::RuntimeError.
SealedCount SealStoredPins(const PinStoreOpener& open, const QString& keyFile);

/// Number of PINs stored in clear text. Throws database::DatabaseError.
int CountClearPins(database::Connection& general);
/// Where the general database is.
enum class DatabasePlace { File, Server };
/// A message with the command that fixes it, if the installation has a key file but also clear-text PINs, which never
/// match at sign-in; otherwise empty. Throws database::DatabaseError.
QString ClearPinsFault(const QString& root, database::Connection& general, DatabasePlace place);

}  // namespace setup
