#pragma once

#include <QString>
#include <functional>

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

// Common steps of filling a work table, on Globals().ReportRecordset.

/// Empties the table and opens it for adding records. The result is not checked: an empty table has no rows, and if the
/// recordset is not open, adding the first record throws.
void OpenEmptiedWorkTable(const QString& table);

/// Calls back for each row checked for output, in the order of the list, and shows the progress in the wait dialog. An
/// exception from the callback ends the loop and propagates.
void ForEachMarkedRow(const std::function<void(int row)>& callback);

/// True if the table has rows. Queries the table instead of counting the writes, which may have failed. Throws
/// database::DatabaseError if the table cannot be read.
bool WorkTableHasRows(const QString& table);
