#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/RowStoreProcedures.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffQuery.h"
#include "inquiry/StaffStatement.h"
#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {
/// The page that begins at the last row still has to lie inside the store.
int RowLimit() { return StaffRowStore::kRows - 1 - Globals().RowsPerPage; }

void TakeRow(database::Recordset& record, int row) {
    Globals().Rows.出力対象.at(static_cast<size_t>(row)) = 1;
    LoadStaffRow(record, row);
}

/// False when there were more rows than the store takes. Rows let events through, and one of these may close
/// the connections: the rows are here already, and whatever is still asked for them then fails quietly.
bool LoadRows(database::Recordset& record) {
    ProgramGlobals& globals = Globals();
    platform::EventPump gate;
    while (!record.AtEOF()) {
        if (globals.LastRow >= RowLimit()) return false;
        gate.ProcessEvents();
        globals.LastRow += 1;
        TakeRow(record, globals.LastRow);
        record.MoveNext();
    }
    return true;
}

/// Reads under one snapshot, which ends here: it would keep other programs from writing for as long as somebody
/// looks at the message.
bool ReadMatchingStaff(const QString& sql) {
    const database::ReadScope scope(Globals().MainConnection);
    database::Recordset record;
    const bool complete = !OpenRecordset(record, sql, true) || LoadRows(record);
    CloseQuietly(record);
    return complete;
}
}  // namespace

void RunStaffSearch() {
    const QString sql = BuildStaffStatement();
    Globals().LastRow = -1;
    if (ReadMatchingStaff(sql)) return;
    platform::Services().dialogs->ShowMessage(u"対象件数が"_s + FormatByMask(RowLimit(), u"#,###,##0"_s) +
                                              u"を超えました。"_s);
}

void ReloadStaffRow(int row) {
    const QString sql = StaffStatementHead() + u" WHERE M担当者.コード = '"_s +
                        Globals().Rows.Text(StaffText::担当者コード, row) + u'\'';
    ClearRow(row);
    database::Recordset record;
    if (OpenRecordset(record, sql, true)) {
        TakeRow(record, row);
    } else {
        RemoveRow(row);
    }
    CloseQuietly(record);
    RefreshScreen();
}
