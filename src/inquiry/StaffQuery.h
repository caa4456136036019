#pragma once

#include <QString>

#include "inquiry/LoadedStaff.h"

// The staff query: its statement (StaffStatement.cpp), the search and the reload of one row (StaffQuery.cpp), the row
// store with their results (RowStoreProcedures.cpp), and the program that changes a row (StaffRegistration.cpp).

/// The statement of the staff list for Globals().Conditions and the selection windows, identical for all dialects. Side
/// effect: a class at or above the MaxValue of its item on the main form means all and is set to that MaxValue.
QString BuildStaffStatement();

/// SELECT and FROM of search and reload, ending with a blank; the caller appends " WHERE ...".
QString StaffStatementHead();

/// Runs the statement and fills the row store, which the caller has reset; all rows are checked for output. LastRow is
/// the last row or -1 afterwards. Processes events between rows. If there are more rows than the store takes: a
/// message; those read so far stay. A failed query leaves an empty list. Throws what LoadStaffRow throws.
void RunStaffSearch();

/// Reads the row's staff member again, or removes the row if there is none any more or the query fails. Repaints the
/// screen. Throws what LoadStaffRow throws.
void ReloadStaffRow(int row);

// Procedures on Globals().Rows. Row numbers are 0-based.

/// Empties the store; LastRow is -1 and TopRow 0 afterwards.
void ResetRowStore();
/// Empties one row; LastRow does not change.
void ClearRow(int row);
/// Fills an empty row from a row of the staff statement. Throws platform::RuntimeError if 住所B is Null and 住所A is
/// not.
void LoadStaffRow(const std::shared_ptr<LoadedStaff>& staff, int queryRow, int row);
/// Copies all fields but EMAIL, which the target keeps: wanted, although it looks wrong.
void CopyRow(int source, int target);
/// Removes a row and moves the following ones up with CopyRow; 行No is not renumbered. TopRow becomes 0 if the
/// remaining rows fit on one page. A row after LastRow is only emptied.
void RemoveRow(int row);

/// Starts the program 要員台帳更新 for the staff member at a position of the list (from 0), waits for its end without a
/// timeout and reloads the row. Ignores an empty position. Any platform::RuntimeError shows the message that the
/// program is missing; the main form, disabled for the exchange, then stays disabled.
void LaunchStaffRegistration(int position);
