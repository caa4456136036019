#pragma once

#include <QString>

// The staff query: its statement (StaffStatement.cpp), the search and the reload of one row (StaffQuery.cpp).

/// The statement of the staff list for Globals().Conditions, identical for all dialects. Side effect: classes at or
/// above the MaxValue of 在籍区分 and 社員区分 are set to it, which shows as "all" in the list.
QString BuildStaffStatement();

/// SELECT and FROM of search and reload, up to the blank before " WHERE".
QString StaffStatementHead();

/// Runs the statement and appends the rows to the row store, which the caller has reset. LastRow is the last row or -1
/// afterwards. Processes events between rows. If there are more rows than the store takes: a message; those read so far
/// stay. A failed query leaves an empty list.
void RunStaffSearch();

/// Reads the row's staff member again, or removes the row if there is none any more or the query fails. Repaints.
void ReloadStaffRow(int row);
