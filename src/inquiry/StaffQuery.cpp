#include "inquiry/StaffQuery.h"

#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/ListStatus.h"
#include "inquiry/ScreenState.h"
#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {
/// A page that begins at the last row must fit into the store.
int RowLimit() { return StaffRowStore::kRows - 1 - Globals().RowsPerPage; }

void LoadRow(const std::shared_ptr<LoadedStaff>& staff, int queryRow, int row) {
    Globals().Rows.出力対象.at(static_cast<size_t>(row)) = 1;
    LoadStaffRow(staff, queryRow, row);
}

/// False if there are more rows than the store takes. Loading processes events, and a handler may close the connection.
/// The rows are already in memory; later lookups fail silently.
bool LoadRows(const database::ResultRows& rows) {
    ProgramGlobals& globals = Globals();
    const auto staff = std::make_shared<LoadedStaff>(rows, 1, StaffLookups::Read());
    platform::EventPump pump;
    for (int queryRow = 0; queryRow < rows.Count(); ++queryRow) {
        if (globals.LastRow >= RowLimit()) return false;
        pump.ProcessEvents();
        globals.LastRow += 1;
        LoadRow(staff, queryRow, globals.LastRow);
    }
    return true;
}

/// Reads within one snapshot, which must end before a message is shown: it prevents other programs from writing.
bool ReadMatchingStaff(const QString& sql) {
    const database::ReadScope scope(Globals().MainConnection);
    database::Recordset record;
    const bool complete = !OpenRecordset(record, sql, LogStatement::Yes) || LoadRows(record.Rows());
    CloseQuietly(record);
    return complete;
}
}  // namespace

void RunStaffSearch() {
    const QString sql = BuildStaffStatement();
    Globals().LastRow = -1;
    const bool complete = ReadMatchingStaff(sql);
    ShowRowCounts();
    if (complete) return;
    platform::Services().dialogs->ShowMessage(u"対象件数が"_s + FormatByMask(RowLimit(), u"#,###,##0"_s) +
                                              u"を超えました。"_s);
}

void ReloadStaffRow(int row) {
    const QString sql = StaffStatementHead() + u" WHERE M担当者.コード = '"_s +
                        Globals().Rows.Text(StaffText::担当者コード, row) + u'\'';
    ClearRow(row);
    database::Recordset record;
    if (OpenRecordset(record, sql, LogStatement::Yes)) {
        LoadRow(std::make_shared<LoadedStaff>(record.Rows(), row + 1, StaffLookups()), 0, row);
    } else {
        RemoveRow(row);
    }
    CloseQuietly(record);
    RefreshScreen();
    ShowRowCounts();
}
