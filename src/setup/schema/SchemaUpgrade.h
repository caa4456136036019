#pragma once

#include <QStringList>

#include "data/Catalogue.h"

struct sqlite3;

namespace setup {

/// Adds the tables, columns and indexes that a file made by an older version lacks, within the caller's transaction.
/// Rows and additions of the site are unchanged; new columns are Null. Returns one line for the administrator per
/// addition. Throws database::DatabaseError.
QStringList RenewSchema(sqlite3* database, DatabaseKind store);

/// Same for the reports of a template file: missing ones are added in their standard form, linked to the given work
/// tables; existing ones are unchanged.
QStringList AddMissingForms(sqlite3* database, const QString& workTables);

}  // namespace setup
