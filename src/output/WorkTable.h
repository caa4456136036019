#pragma once

#include <QString>
#include <functional>

// Common steps of filling a work table, on Globals().ReportRecordset.

/// Empties the table and opens it for adding records. The result is not checked: an empty table has no rows, and if the
/// recordset is not open, adding the first record throws.
void OpenEmptiedWorkTable(const QString& table);

/// Calls back for each row checked for output, in the order of the list, and shows the progress in the wait dialog.
void ForEachMarkedRow(const std::function<void(int row)>& callback);

/// Queries the table instead of counting the writes, which may have failed. Throws database::DatabaseError if the table
/// cannot be read.
bool WorkTableHoldsRows(const QString& table);
