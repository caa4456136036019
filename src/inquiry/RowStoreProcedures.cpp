#include "inquiry/RowStoreProcedures.h"

#include "globals/ProgramGlobals.h"

void ResetRowStore() {
    Globals().LastRow = -1;
    Globals().TopRow = 0;
    for (int row = 0; row <= StaffRowStore::kLastClearedRow; ++row) ClearRow(row);
}

void ClearRow(int row) {
    StaffRowStore& rows = Globals().Rows;
    const auto at = static_cast<size_t>(row);
    for (auto& column : rows.texts) column.at(at).clear();
    rows.出力対象.at(at) = 0;
    rows.閲覧区分.at(at) = 0;
    rows.rowFlag.at(at) = 0;
}

void CopyRow(int source, int target) {
    StaffRowStore& rows = Globals().Rows;
    const auto from = static_cast<size_t>(source);
    const auto to = static_cast<size_t>(target);
    for (int field = 0; field < kStaffTextCount; ++field) {
        if (field == static_cast<int>(StaffText::EMAIL)) continue;
        auto& column = rows.texts[static_cast<size_t>(field)];
        column.at(to) = column.at(from);
    }
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
    // A page that now reaches past the end keeps its TopRow: only a list that fits one page goes to the top.
    if (globals.RowsPerPage > globals.LastRow) globals.TopRow = 0;
}
