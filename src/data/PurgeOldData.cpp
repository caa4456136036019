#include "data/PurgeOldData.h"

#include <QDateTime>
#include <QString>
#include <array>

#include "data/Recordsets.h"
#include "platform/Services.h"
#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

namespace {

struct AgedTable {
    QStringView table;
    QStringView stampColumn;
    int months;  ///< age in calendar months
    int days;    ///< plus days
};

constexpr std::array kAgedTables = {
    AgedTable{u"プログラム稼動履歴", u"実行日付", 6, 0},
    AgedTable{u"プログラム連携情報", u"発信日時", 0, 3},
    AgedTable{u"プログラムクリップボード", u"貼付日時", 0, 3},
    AgedTable{u"プログラムクリップボード明細", u"貼付日時", 0, 3},
};

QString AgedRows(const AgedTable& aged) {
    const QDateTime limit = platform::Services().clock->Now().addMonths(-aged.months).addDays(-aged.days);
    return u" FROM "_s + aged.table.toString() + u" WHERE "_s + aged.stampColumn.toString() + u" <= '"_s +
           TimeStamp(limit) + u"'"_s;
}

/// The SELECT avoids a DELETE, and its write lock, on a table without aged rows.
void PurgeTable(const AgedTable& aged) {
    database::Recordset record;
    const bool found = OpenConfigRecordset(record, u"SELECT *"_s + AgedRows(aged));
    record.Close();
    if (found) ExecuteConfigSql(u"DELETE"_s + AgedRows(aged));
}

}  // namespace

void PurgeOldData() {
    for (const AgedTable& aged : kAgedTables) PurgeTable(aged);
}
