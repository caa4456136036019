#pragma once

#include <QString>

#include "database/Database.h"

// The database of work tables, open during one output: Globals().ReportDatabase with one recordset,
// Globals().ReportRecordset. A work table contains the rows of the last output. No transactions: each statement and
// each added record is committed separately.

/// Opens the file in the user's report folder. False, without changes, if the installation has none (ReportDbKind
/// neither 1 nor 2). Throws database::DatabaseError if the file cannot be opened.
bool OpenReportDatabase();
/// Closes and releases the connection in any state.
void CloseReportDatabase() noexcept;

// The next three never throw. An error returns false and logs a row エラー in the run history: the statement, then the
// description (the wrappers of the other databases log the description first). No message is shown.

/// True if the statement ran.
bool ExecuteReportSql(const QString& sql);
/// Opens for adding records. True if there are rows; after an error the recordset is not open.
bool OpenReportForUpdate(database::Recordset& recordset, const QString& sql);
/// Opens for reading forward. True if there are rows; after an error the recordset is not open.
bool OpenReportReadOnly(database::Recordset& recordset, const QString& sql);
