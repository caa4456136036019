#include "output/ReportData.h"

#include <array>

#include "data/EraDates.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/StaffColumns.h"
#include "output/ReportDatabase.h"

using namespace Qt::StringLiterals;

namespace {

using enum StaffText;

constexpr auto kFirstColumns = std::to_array<StaffText>({
    担当者コード, 担当者名, カナ,         性別区分名, 郵便番号,         住所A,      住所B,      住所C,      電話,
    携帯電話,     EMAIL,    所属事業所名, 部門名,     セクション名,     役職名,     在籍区分名, 社員区分名, 生年月日,
    入社日付,     退社日付, 事業所コード, 部門コード, セクションコード, 役職コード,
});

constexpr auto kLastColumns = std::to_array<StaffText>({担当者メモ, 登録日付, 更新日付});

/// Not written for a company without other offices.
void WriteOffice(database::Recordset& record) {
    const ProgramGlobals& globals = Globals();
    if (globals.OfficeCount <= 0) return;
    record.Write(u"運用事業所コード", globals.Environment.OperatingOfficeCode);
    record.Write(u"運用事業所名", globals.Office.名称);
}

/// An empty date is not written, since its era text would be "年月日".
void WriteShownDate(database::Recordset& record, const StaffDate& date, int row) {
    const QString& stored = Globals().Rows.Text(date.stored, row);
    if (!stored.isEmpty()) record.Write(date.shownColumn, EraDateLong(stored));
}

template <typename Fields>
void WriteFields(database::Recordset& record, const Fields& fields, int row) {
    for (const StaffText field : fields) record.Write(ColumnOf(field).column, Globals().Rows.Text(field, row));
}

void WriteRow(database::Recordset& record, int row) {
    WriteOffice(record);
    record.Write(u"選択条件", BuildSelectionText());
    WriteFields(record, kFirstColumns, row);
    for (const StaffDate& date : kStaffDates) WriteShownDate(record, date, row);
    WriteFields(record, kLastColumns, row);
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
    return WorkTableHasRows(table);
}
