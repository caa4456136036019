#pragma once

#include <QString>

#include "setup/Arguments.h"
#include "setup/Console.h"

namespace setup {

/// What a sealing found.
struct SealedCount {
    int sealed = 0;      ///< were in the clear
    int before = 0;      ///< were sealed already, and open under the key
    int unopenable = 0;  ///< were sealed under another key; left alone
};

/// Seals every PIN of a general database that stands in it in the clear, in one transaction, and makes the key file
/// where there is none. After a failure nothing is changed and no new key file is left; only where the disk leaves it
/// uncertain whether PINs are sealed under it, the key file stays, and the next sealing goes on with it. Throws
/// platform::RuntimeError.
SealedCount SealStoredPins(const QString& generalFile, const QString& keyFile);

/// The verb: finds the general database by the installation's definition row and prints the counts. Throws Refusal
/// where there is no installation, or where its general database is not a file.
void SealPins(const Arguments& arguments, const Console& console);

}  // namespace setup
