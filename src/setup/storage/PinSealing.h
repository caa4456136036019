#pragma once

#include <QString>

#include "setup/storage/PinStore.h"

namespace setup {

/// Counts of a run.
struct SealedCount {
    int sealed = 0;      ///< were in clear text
    int before = 0;      ///< already encrypted, and decrypt with the key
    int unopenable = 0;  ///< encrypted with another key; left unchanged
};

/// Encrypts every clear-text PIN of a general database in one transaction, and creates the key file if there is none.
/// On failure nothing is changed and a new key file is removed. Only if the outcome of the commit is unknown (disk or
/// network failure) the key file stays, and the next run uses it. Throws platform::RuntimeError.
SealedCount SealStoredPins(const PinStoreOpener& open, const QString& keyFile);

/// Number of PINs stored in clear text. Throws database::DatabaseError.
int CountClearPins(database::Connection& general);
/// A message with the command that fixes it, if the installation has a key file but also clear-text PINs, which never
/// match at sign-in; otherwise empty. Throws database::DatabaseError.
QString ClearPinsFault(const QString& root, database::Connection& general, bool onServer);

}  // namespace setup
