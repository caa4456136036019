#pragma once

#include <QString>

#include "database/Database.h"

// The database of work tables, open for the length of one output: Globals().ReportDatabase, and on it one recordset,
// Globals().ReportRecordset. A work table holds the rows of one output and is left filled. No transactions: every
// statement and every added record stands by itself.

/// Opens the file in the report folder in use. False, and nothing is touched, where the installation has none
/// (ReportDbKind neither 1 nor 2). A file that can't be opened rises as database::DatabaseError.
bool OpenReportDatabase();
/// Closes and releases the connection, whatever its state.
void CloseReportDatabase() noexcept;

// The next three never raise: a failure leaves a row エラー in the run history, the statement first and the description
// behind it, and gives False. (The wrappers of the other databases put the description first.) No message is shown.

/// True when the statement ran.
bool ExecuteReportSql(const QString& sql);
/// Opens for adding records. True when there are rows; after a failure the recordset is not open.
bool OpenReportForUpdate(database::Recordset& recordset, const QString& sql);
/// Opens for reading forward. True when there are rows; after a failure the recordset is not open.
bool OpenReportReadOnly(database::Recordset& recordset, const QString& sql);
