#pragma once

#include <QString>

#include "database/Database.h"

// The row store of Globals(). Row numbers run from 0.

void ResetRowStore();
void ClearRow(int row);
/// Fills the row from the current record of the staff statement. RuntimeError for a Null 住所B beside a 住所A.
void LoadStaffRow(database::Recordset& record, int row);
/// Copies everything but EMAIL, which stays at its row: so it has always been.
void CopyRow(int source, int target);
/// Moves the rows below up by one. 行No keeps its gap.
void RemoveRow(int row);
/// The last entry of the viewing log for the launching staff member: -2 when nobody is known, -1 without an
/// entry, otherwise its 閲覧区分.
int GetLastViewKind(const QString& 閲覧情報, const QString& 伝票事業所コード, const QString& 伝票番号基準日付,
                    const QString& 伝票No, const QString& キー項目);
