#pragma once

#include <QString>
#include <QStringList>

namespace setup {

/// Result of the engine's own check of a database file.
struct Integrity {
    QStringList errors{};      ///< the engine's messages, at most a few
    bool onlyIndexes = false;  ///< all errors are in indexes, which can be rebuilt from the rows

    bool IsIntact() const { return errors.isEmpty(); }
};

/// True if a killed program has left a write that the next writer finishes or rolls back. Opening the file by the usual
/// procedures would do that if this user may write it. False for a file that is missing or no database.
bool NeedsRecovery(const QString& path);

/// Checks structure, rows and indexes of a database file without writing. Throws database::DatabaseError if the file
/// can't be opened.
Integrity IntegrityOf(const QString& path);

/// Rebuilds all indexes of a file. Throws database::DatabaseError.
void RebuildIndexes(const QString& path);

}  // namespace setup
