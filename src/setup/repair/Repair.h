#pragma once

#include <QString>
#include <QStringList>

#include "database/Database.h"
#include "setup/storage/Installation.h"

// Repair of an installation: adds the rows, files and folders without which the programs do not work, or removes rows
// that keep them from working. What is intact stays unchanged. Each procedure returns one sentence per change, and
// throws platform::RuntimeError; then the database concerned is unchanged.

namespace setup {

/// Changes that are only made on request.
struct RepairRequest {
    QString office{};           ///< new 運用事業所コード; empty: unchanged if the office exists
    QString installKind{};      ///< new インストール区分; empty: unchanged
    bool resetClasses = false;  ///< staff with a class that is no digit get the class 0; such classes are deleted
    bool futureRows = false;    ///< delete history and link rows from the future
};

/// Creates missing folders and the manual, and missing databases of the common report folder.
QStringList RepairFiles(const QString& root);
/// Rebuilds the indexes of those database files of the installation that have damaged indexes only.
QStringList RepairIndexes(const QString& root, const QString& generalFile);
/// Rows of the common configuration, and of the private copies.
QStringList RepairConfigurations(const QString& root, const QList<FilePlaces>& privatePlaces,
                                 const RepairRequest& request);
/// Operating office and launching staff member of the configurations, as far as the general database lacks them.
QStringList RepairReferences(const QString& root, const QList<FilePlaces>& privatePlaces, database::Connection& general,
                             const RepairRequest& request);
/// Rows of the general database, in one transaction.
QStringList RepairGeneral(database::Connection& general, const RepairRequest& request);
/// Deletes the output targets of a template file that no program uses.
QStringList RepairTargets(const QString& templateFile);
/// Replaces a template by its standard form. Throws UsageError if there is no standard form of that name.
QStringList RestoreTemplate(const QString& templateFile, const QString& report);

}  // namespace setup
