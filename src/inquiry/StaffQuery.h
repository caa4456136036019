#pragma once

#include <QString>

#include "database/Database.h"

// The staff query: its statement (StaffStatement.cpp), the search and the reload of one row (StaffQuery.cpp), and the
// row store with their results (RowStoreProcedures.cpp).

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

// Procedures on Globals().Rows. Row numbers are 0-based.

/// Empties the store; LastRow is -1 and TopRow 0 afterwards.
void ResetRowStore();
void ClearRow(int row);
/// Fills the row from the current record of the staff statement. Throws platform::RuntimeError if 住所B is Null and
/// 住所A is not.
void LoadStaffRow(database::Recordset& record, int row);
/// Copies all fields except EMAIL, deliberately for compatibility.
void CopyRow(int source, int target);
/// Removes a row and moves the following ones up. 行No is not renumbered.
void RemoveRow(int row);
/// 閲覧区分 of the last entry of the viewing log for the launching staff member; -1 without an entry, -2 if the
/// launching staff member is unknown.
int GetLastViewKind(const QString& 閲覧情報, const QString& 伝票事業所コード, const QString& 伝票番号基準日付,
                    const QString& 伝票No, const QString& キー項目);

/// Starts the program 要員台帳更新 for the staff member at a position of the list, waits for its end and reloads the
/// row. Ignores an empty position. Any platform::RuntimeError is shown as a message; the main form, disabled for the
/// exchange, then stays disabled.
void LaunchStaffRegistration(int position);
