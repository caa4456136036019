// Part of StaffQuery.h: the row store.

#include <QStringBuilder>

#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/StaffQuery.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

void LoadStaffRow(const std::shared_ptr<LoadedStaff>& staff, int queryRow, int row) {
    StaffRowStore& rows = Globals().Rows;
    staff->Prepare(queryRow);
    rows.LoadTexts(row, staff, queryRow);
    rows.閲覧区分.at(static_cast<size_t>(row)) = staff->LastViewKind(queryRow);
}

int GetLastViewKind(const QString& 閲覧情報, const QString& 伝票事業所コード, const QString& 伝票番号基準日付,
                    const QString& 伝票No, const QString& キー項目) {
    const QString& launcher = Globals().Staff.LaunchingStaffCode;
    if (launcher.isEmpty()) return -2;
    const QString sql =
        u"SELECT TOP 1 [T閲覧].[閲覧日付],[T閲覧].[閲覧時刻],[T閲覧].[閲覧区分] FROM [T閲覧]"
        " WHERE [T閲覧].[担当者コード] = '"_s %
        launcher % u"' AND [T閲覧].[閲覧情報] = '" % 閲覧情報 % u"' AND [T閲覧].[伝票事業所コード] = '" %
        伝票事業所コード % u"' AND [T閲覧].[伝票番号基準日付] = '" % 伝票番号基準日付 % u"' AND [T閲覧].[伝票No] = '" %
        伝票No % u"' AND [T閲覧].[キー項目] = '" % キー項目 %
        u"' ORDER BY [T閲覧].[閲覧日付] DESC, [T閲覧].[閲覧時刻] DESC";
    database::Recordset record;
    const bool found = OpenRecordset(record, sql);
    const int kind = found ? NumericValue(record[u"閲覧区分"].TextOr(QString())) : -1;
    CloseQuietly(record);
    return kind;
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
