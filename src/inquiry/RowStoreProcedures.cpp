#include "inquiry/RowStoreProcedures.h"

#include <QStringBuilder>
#include <array>

#include "data/EraDates.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {
using enum StaffText;

/// If column `guard` is Null, the field is not written.
struct ColumnOfField {
    StaffText field;
    QStringView column;
    QStringView guard;
};

constexpr ColumnOfField Own(StaffText field, QStringView column) { return {field, column, column}; }

// 住所B is guarded by 住所A instead of 住所B: a Null 住所B with a 住所A throws.
constexpr auto kColumns = std::to_array<ColumnOfField>({
    Own(担当者コード, u"コード"),
    Own(担当者名, u"氏名"),
    Own(カナ, u"カナ"),
    Own(性別区分名, u"性別区分名"),
    Own(郵便番号, u"郵便番号"),
    Own(住所A, u"住所A"),
    {住所B, u"住所B", u"住所A"},
    Own(住所C, u"住所C"),
    Own(電話, u"電話"),
    Own(携帯電話, u"携帯電話"),
    Own(EMAIL, u"EMAIL"),
    Own(所属事業所名, u"事業所名"),
    Own(部門名, u"部門名"),
    Own(セクション名, u"セクション名"),
    Own(役職名, u"役職名"),
    Own(在籍区分名, u"在籍区分名"),
    Own(社員区分名, u"社員区分名"),
    Own(担当者メモ, u"担当者メモ"),
    Own(事業所コード, u"事業所コード"),
    Own(部門コード, u"部門コード"),
    Own(セクションコード, u"セクションコード"),
    Own(役職コード, u"役職コード"),
    Own(生年月日, u"生年月日"),
    Own(入社日付, u"入社日付"),
    Own(退社日付, u"退社日付"),
});

struct SplitDate {
    StaffText stored;
    StaffText 年号, 年, 月, 日;
};

constexpr auto kDates = std::to_array<SplitDate>({
    {生年月日, 生年月日年号, 生年月日年, 生年月日月, 生年月日日},
    {入社日付, 入社日付年号, 入社日付年, 入社日付月, 入社日付日},
    {退社日付, 退社日付年号, 退社日付年, 退社日付月, 退社日付日},
});

void CopyColumns(database::Recordset& record, int row) {
    StaffRowStore& rows = Globals().Rows;
    for (const ColumnOfField& entry : kColumns) {
        const database::Field field = record[entry.column];
        const bool ownGuard = entry.guard.data() == entry.column.data();
        if (ownGuard ? field.IsNull() : record[entry.guard].IsNull()) continue;
        rows.Text(entry.field, row) = field.Text();
    }
}

void LoadPin(database::Recordset& record, int row) {
    const database::Field stored = record[u"暗証番号"];
    if (!stored.IsNull()) Globals().Rows.Text(暗証番号, row) = platform::Services().pins->ClearText(stored.Text());
}

/// Both era texts are cut by position. For an era without a start date, 年号 and 年 thus contain the two halves of the
/// western year.
void LoadDate(const SplitDate& date, int row) {
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

void LoadStamp(database::Recordset& record, QStringView column, StaffText target, int row) {
    const QString stamp = record[column].TextOr(QString());
    if (!stamp.isEmpty()) Globals().Rows.Text(target, row) = StampForDisplay(stamp);
}
}  // namespace

void LoadStaffRow(database::Recordset& record, int row) {
    StaffRowStore& rows = Globals().Rows;
    rows.Text(行No, row) = FormatByMask(row + 1, u"#####0"_s);
    CopyColumns(record, row);
    LoadPin(record, row);
    for (const SplitDate& date : kDates) LoadDate(date, row);
    LoadStamp(record, u"登録日付", 登録日付, row);
    LoadStamp(record, u"更新日付", 更新日付, row);
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
