#pragma once

#include <QString>
#include <functional>

// What the filling of every work table begins and ends with. All of it works on Globals().ReportRecordset.

/// Empties the table and opens it for adding records. Whether that went well is not looked at: an emptied table has no
/// rows anyway, and where the recordset did not open, the first record to be added tells.
void OpenEmptiedWorkTable(const QString& table);

/// Runs the work for each row of the list that is ticked for output, in the list's order, and shows in the wait dialog
/// how far it is.
void ForEachMarkedRow(const std::function<void(int row)>& work);

/// What the table really holds, and not what a count kept while writing would say. A table that can't be read rises as
/// database::DatabaseError.
bool WorkTableHoldsRows(const QString& table);
