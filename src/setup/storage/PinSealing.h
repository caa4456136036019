#pragma once

#include <QString>

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"
#include "setup/storage/PinStore.h"

namespace setup {

/// What a sealing found.
struct SealedCount {
    int sealed = 0;      ///< were in the clear
    int before = 0;      ///< were sealed already, and open under the key
    int unopenable = 0;  ///< were sealed under another key; left alone
};

/// Seals every PIN of a general database that stands in it in the clear, in one transaction, and makes the key file
/// where there is none. After a failure nothing is changed and no new key file is left; only where the disk or the
/// network leaves it uncertain whether PINs are sealed under it, the key file stays, and the next sealing goes on with
/// it. Throws platform::RuntimeError.
SealedCount SealStoredPins(const PinStoreOpener& open, const QString& keyFile);

/// PINs of a general database that are stored in the clear. Throws database::DatabaseError.
int CountClearPins(database::Connection& general);
/// A sentence and a command for people where the installation has a key file and PINs in the clear beside it, which no
/// entry matches; else empty. Throws database::DatabaseError.
QString ClearPinsFault(const QString& root, database::Connection& general, bool onServer);

QList<OptionRule> SealPinsOptions();

/// The verb: finds the general database by the installation's definition row, on a server with the account of that row
/// or of `--odbc`, and prints the counts. Throws UsageError where there is no installation and where `--odbc` names
/// another database, else platform::RuntimeError.
void SealPins(const Arguments& arguments, const Console& console);

}  // namespace setup
