#include "output/ReportData.h"

#include <array>

#include "data/EraDates.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "output/ReportDatabase.h"
#include "output/SelectionText.h"
#include "output/WorkTable.h"

using namespace Qt::StringLiterals;

namespace {

using enum StaffText;

constexpr auto kRowColumns = std::to_array<RowColumn>({
    {u"コード", 担当者コード},
    {u"氏名", 担当者名},
    {u"カナ", カナ},
    {u"性別区分名", 性別区分名},
    {u"郵便番号", 郵便番号},
    {u"住所A", 住所A},
    {u"住所B", 住所B},
    {u"住所C", 住所C},
    {u"電話", 電話},
    {u"携帯電話", 携帯電話},
    {u"EMAIL", EMAIL},
    {u"事業所名", 所属事業所名},
    {u"部門名", 部門名},
    {u"セクション名", セクション名},
    {u"役職名", 役職名},
    {u"在籍区分名", 在籍区分名},
    {u"社員区分名", 社員区分名},
    {u"生年月日", 生年月日},
    {u"入社日付", 入社日付},
    {u"退社日付", 退社日付},
    {u"事業所コード", 事業所コード},
    {u"部門コード", 部門コード},
    {u"セクションコード", セクションコード},
    {u"役職コード", 役職コード},
});

constexpr auto kShownDates = std::to_array<RowColumn>({
    {u"表示生年月日", 生年月日},
    {u"表示入社日付", 入社日付},
    {u"表示退社日付", 退社日付},
});

constexpr auto kLastColumns = std::to_array<RowColumn>({
    {u"担当者メモ", 担当者メモ},
    {u"登録日付", 登録日付},
    {u"更新日付", 更新日付},
});

/// Not written for a company without other offices.
void WriteOffice(database::Recordset& record) {
    const ProgramGlobals& globals = Globals();
    if (globals.OfficeCount <= 0) return;
    record.Write(u"運用事業所コード", globals.Environment.OperatingOfficeCode);
    record.Write(u"運用事業所名", globals.Office.名称);
}

/// An empty date is not written, since its era text would be "年月日".
void WriteShownDate(database::Recordset& record, const RowColumn& date, int row) {
    const QString& stored = Globals().Rows.Text(date.field, row);
    if (!stored.isEmpty()) record.Write(date.column, EraDateLong(stored));
}

void WriteRow(database::Recordset& record, int row) {
    const StaffRowStore& rows = Globals().Rows;
    WriteOffice(record);
    record.Write(u"選択条件", BuildSelectionText());
    for (const RowColumn& column : kRowColumns) record.Write(column.column, rows.Text(column.field, row));
    for (const RowColumn& date : kShownDates) WriteShownDate(record, date, row);
    for (const RowColumn& column : kLastColumns) record.Write(column.column, rows.Text(column.field, row));
}

}  // namespace

// Eras and selection names are queried for every row; within one ReadScope the results are cached.
bool BuildReportData() {
    const QString table = Globals().ReportName;
    database::Recordset& record = Globals().ReportRecordset;
    OpenEmptiedWorkTable(table);
    {
        const database::ReadScope scope(Globals().MainConnection);
        ForEachMarkedRow([&record](int row) {
            record.AddNew();
            WriteRow(record, row);
            record.Update();
        });
    }
    CloseQuietly(record);
    return WorkTableHoldsRows(table);
}
