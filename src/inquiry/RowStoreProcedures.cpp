// Part of StaffQuery.h: the row store.

#include "globals/ProgramGlobals.h"
#include "inquiry/StaffQuery.h"

void LoadStaffRow(const std::shared_ptr<LoadedStaff>& staff, int queryRow, int row) {
    StaffRowStore& rows = Globals().Rows;
    staff->Prepare(queryRow);
    rows.LoadTexts(row, staff, queryRow);
    rows.閲覧区分.at(static_cast<size_t>(row)) = staff->LastViewKind(queryRow);
}

void ResetRowStore() {
    Globals().LastRow = -1;
    Globals().TopRow = 0;
    for (int row = 0; row <= StaffRowStore::kLastClearedRow; ++row) ClearRow(row);
    Globals().Rows.ReleaseQueries();
}

void ClearRow(int row) {
    StaffRowStore& rows = Globals().Rows;
    const auto at = static_cast<size_t>(row);
    rows.ClearTexts(row);
    rows.出力対象.at(at) = 0;
    rows.閲覧区分.at(at) = 0;
    rows.rowFlag.at(at) = 0;
}

void CopyRow(int source, int target) {
    StaffRowStore& rows = Globals().Rows;
    const auto from = static_cast<size_t>(source);
    const auto to = static_cast<size_t>(target);
    rows.CopyTexts(source, target);
    rows.出力対象.at(to) = rows.出力対象.at(from);
    rows.閲覧区分.at(to) = rows.閲覧区分.at(from);
    rows.rowFlag.at(to) = rows.rowFlag.at(from);
}

void RemoveRow(int row) {
    ProgramGlobals& globals = Globals();
    if (globals.LastRow >= 0 && row <= globals.LastRow) {
        for (int j = row; j <= globals.LastRow; ++j) CopyRow(j + 1, j);
        ClearRow(globals.LastRow);
        globals.LastRow -= 1;
    } else {
        ClearRow(row);
    }
    // TopRow is reset only if the list fits on one page; a page that extends past the end is allowed.
    if (globals.RowsPerPage > globals.LastRow) globals.TopRow = 0;
}
