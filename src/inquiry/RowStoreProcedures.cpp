// Part of StaffQuery.h: the row store.

#include <QStringBuilder>
#include <algorithm>
#include <array>

#include "data/EraDates.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/StaffColumns.h"
#include "inquiry/StaffQuery.h"
#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {
using enum StaffText;

// Selected by the compiler, so that the loop over the columns of a row has no condition on their source.
constexpr auto kCopiedColumns = [] {
    constexpr auto copied = [](const StaffColumn& column) { return column.source == StaffSource::Column; };
    std::array<StaffColumn, std::count_if(kStaffColumns.begin(), kStaffColumns.end(), copied)> columns{};
    std::copy_if(kStaffColumns.begin(), kStaffColumns.end(), columns.begin(), copied);
    return columns;
}();

void CopyColumns(database::Recordset& record, int row) {
    StaffRowStore& rows = Globals().Rows;
    for (const StaffColumn& entry : kCopiedColumns) {
        const database::Field field = record[entry.column];
        if (entry.guard.isEmpty() ? field.IsNull() : record[entry.guard].IsNull()) continue;
        rows.Text(entry.field, row) = field.Text();
    }
}

void LoadPin(database::Recordset& record, const StaffColumn& entry, int row) {
    const database::Field stored = record[entry.column];
    if (!stored.IsNull()) Globals().Rows.Text(entry.field, row) = platform::Services().pins->ClearText(stored.Text());
}

/// Both era texts are cut by position. For an era without a start date, 年号 and 年 thus contain the two halves of the
/// western year.
void LoadDate(const StaffDate& date, int row) {
    StaffRowStore& rows = Globals().Rows;
    const QString& stored = rows.Text(date.stored, row);
    if (stored.isEmpty()) return;
    rows.Text(date.月, row) = stored.mid(4, 2);
    rows.Text(date.日, row) = stored.mid(6, 2);
    rows.Text(date.年号, row) = EraDateLong(stored).left(2);
    rows.Text(date.年, row) = EraDateShort(stored).left(2);
}

/// "yyyymmdd hhnnss" to "yyyy/mm/dd hh:nn:ss", by position without validation.
QString StampForDisplay(const QString& stamp) {
    const QStringView s(stamp);
    const auto cut = [s](qsizetype from, qsizetype count) { return from < s.size() ? s.mid(from, count) : s.left(0); };
    return cut(0, 4) % u'/' % cut(4, 2) % u'/' % cut(6, 2) % u' ' % cut(9, 2) % u':' % cut(11, 2) % u':' % cut(13, 2);
}

void LoadStamp(database::Recordset& record, const StaffColumn& entry, int row) {
    const QString stamp = record[entry.column].TextOr(QString());
    if (!stamp.isEmpty()) Globals().Rows.Text(entry.field, row) = StampForDisplay(stamp);
}
}  // namespace

void LoadStaffRow(database::Recordset& record, int row) {
    StaffRowStore& rows = Globals().Rows;
    rows.Text(行No, row) = FormatByMask(row + 1, u"#####0"_s);
    CopyColumns(record, row);
    LoadPin(record, ColumnOf(暗証番号), row);
    for (const StaffDate& date : kStaffDates) LoadDate(date, row);
    LoadStamp(record, ColumnOf(登録日付), row);
    LoadStamp(record, ColumnOf(更新日付), row);
    const QString empty;
    rows.閲覧区分.at(static_cast<size_t>(row)) =
        static_cast<qint16>(GetLastViewKind(u"要員台帳更新"_s, empty, empty, empty, rows.Text(担当者コード, row)));
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
    // TopRow is reset only if the list fits on one page; a page that extends past the end is allowed.
    if (globals.RowsPerPage > globals.LastRow) globals.TopRow = 0;
}
