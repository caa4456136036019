#include "output/WorkTable.h"

#include "globals/ProgramGlobals.h"
#include "output/ReportDatabase.h"
#include "screen/msgお待ち.h"

using namespace Qt::StringLiterals;

namespace {

bool Marked(int row) { return Globals().Rows.出力対象.at(static_cast<size_t>(row)) == 1; }

int CountMarked() {
    int count = 0;
    for (int row = 0; row <= Globals().LastRow; ++row) count += Marked(row) ? 1 : 0;
    return count;
}

}  // namespace

void OpenEmptiedWorkTable(const QString& table) {
    ExecuteReportSql(u"DELETE FROM "_s + table);
    OpenReportForUpdate(Globals().ReportRecordset, u"SELECT * FROM "_s + table);
}

void ForEachMarkedRow(const std::function<void(int row)>& callback) {
    const int count = CountMarked();
    int done = 0;
    for (int row = 0; row <= Globals().LastRow; ++row) {
        if (!Marked(row)) continue;
        callback(row);
        PaintProgress(u"データ作成"_s, ++done, count);
    }
}

bool WorkTableHoldsRows(const QString& table) {
    database::Recordset& record = Globals().ReportRecordset;
    record = database::Recordset();
    OpenReportReadOnly(record, u"SELECT * FROM "_s + table);
    const bool holds = !record.AtBOF() && !record.AtEOF();
    record.Close();
    record = database::Recordset();
    return holds;
}
