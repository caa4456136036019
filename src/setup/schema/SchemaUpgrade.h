#pragma once

#include <QStringList>

#include "data/Catalogue.h"
#include "database/Database.h"
#include "globals/EnvironmentDefinition.h"

struct sqlite3;

// Migration of databases that an older version has made: adds what the catalogue has and a file or server lacks.

namespace setup {

// DDL statements for a database file, generated from the catalogue; data/ServerSchema.h has those for servers.

QString CreateTableStatement(const TableDefinition& table);
QString AddColumnStatement(const TableDefinition& table, const ColumnDefinition& column);

/// Name of a table's secondary index; `number` counts from 0.
QString IndexName(const TableDefinition& table, int number);
QString CreateIndexStatement(const TableDefinition& table, int number);

/// Adds the tables, columns and indexes that a file made by an older version lacks, within the caller's transaction.
/// Rows and additions of the site are unchanged; new columns are Null. Returns one line for the administrator per
/// addition. Throws database::DatabaseError.
QStringList UpgradeSchema(sqlite3* database, DatabaseKind kind);

/// Same for the reports of a template file: missing ones are added in their standard form, linked to the work-table
/// file at the path `workTables`; existing ones are unchanged.
QStringList AddMissingTemplates(sqlite3* database, const QString& workTables);

/// Adds the tables, columns, indexes and functions that an older general database on a server lacks. Rows and additions
/// of the site are unchanged; new columns are Null. Atomic if the engine's DDL is transactional. Returns one sentence
/// per change. Throws UsageError if none of the suite's tables exists, and database::DatabaseError.
QStringList UpgradeServerSchema(database::Connection& server);

/// Throws platform::RuntimeError if the account of the definition row cannot see every table and column of the suite.
void CheckSeenByPrograms(const GeneralDatabaseDefinition& definition);

}  // namespace setup
