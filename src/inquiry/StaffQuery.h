#pragma once

#include <QString>

/// The statement of the staff list for the present conditions, word for word as every dialect gets it. Writes
/// MaxValue back into 在籍区分 and 社員区分 where they are at or above it: that is how "all" shows in the list.
QString BuildStaffStatement();

/// Runs the statement and fills the row store, which the caller has reset. Leaves LastRow at the last row or -1.
/// Events are let through between rows. Too many rows: a message, and those read so far stay.
void RunStaffSearch();

/// Reads the row's staff member again, or takes the row out when there is none any more (a failed read counts as
/// none). Repaints.
void ReloadStaffRow(int row);
