#pragma once

#include <QString>

#include "database/Database.h"

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
