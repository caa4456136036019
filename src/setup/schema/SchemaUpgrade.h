#pragma once

#include <QStringList>

#include "data/Catalogue.h"

struct sqlite3;

namespace setup {

/// Adds the tables, columns and indexes of the store that an open file made by an older version lacks. Rows, and what a
/// site has added of its own, stay as they are; a new column is Null in every row. Within the caller's transaction.
/// Returns what was added in words for the administrator, one line each. Throws database::DatabaseError.
QStringList RenewSchema(sqlite3* database, DatabaseKind store);

/// The same for the reports of a forms file: those that are missing come in their standard form, linked to the work
/// tables named; those that are there stay.
QStringList AddMissingForms(sqlite3* database, const QString& workTables);

}  // namespace setup
