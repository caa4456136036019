#include "data/Recordsets.h"

#include <QDateTime>
#include <array>

#include "data/RunHistory.h"
#include "database/sql/Quoting.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

namespace {

bool OpenOn(database::Connection& connection, database::Recordset& recordset, const QString& sql) {
    recordset = database::Recordset();
    recordset.Open(sql, connection);
    return !recordset.AtBOF() && !recordset.AtEOF();
}

/// A failed statement on the history table must not write to the history table.
void RecordConfigFailure(const database::DatabaseError& error, const QString& sql) {
    if (!sql.contains(u"プログラム稼動履歴"_s, Qt::CaseInsensitive)) RecordRunError(error.Description() + sql);
}

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
    return u" FROM "_s + aged.table.toString() + u" WHERE "_s + aged.stampColumn.toString() + u" <= "_s +
           database::TextLiteral(TimeStamp(limit));
}

/// The SELECT avoids a DELETE, and its write lock, on a table without aged rows.
void PurgeTable(const AgedTable& aged) {
    database::Recordset record;
    const bool found = OpenConfigRecordset(record, u"SELECT *"_s + AgedRows(aged));
    record.Close();
    if (found) ExecuteConfigSql(u"DELETE"_s + AgedRows(aged));
}

}  // namespace

bool OpenRecordset(database::Recordset& recordset, const QString& sql, LogStatement log) {
    try {
        const bool found = OpenOn(Globals().MainConnection, recordset, sql);
        if (log == LogStatement::Yes) RecordOutputEnd(sql);
        return found;
    } catch (const database::DatabaseError& error) {
        RecordRunError(error.Description() + sql);
        return false;
    }
}

bool OpenConfigRecordset(database::Recordset& recordset, const QString& sql) {
    try {
        return OpenOn(Globals().ConfigConnection, recordset, sql);
    } catch (const database::DatabaseError& error) {
        RecordConfigFailure(error, sql);
        return false;
    }
}

bool ExecuteConfigSql(const QString& sql) {
    try {
        Globals().ConfigConnection.Execute(sql);
        return true;
    } catch (const database::DatabaseError& error) {
        RecordConfigFailure(error, sql);
        return false;
    }
}

bool ExecuteConfigSqlLogged(const QString& sql) {
    const bool ran = ExecuteConfigSql(sql);
    if (ran) RecordOutputEnd(sql);
    return ran;
}

void CloseQuietly(database::Recordset& recordset) noexcept {
    if (recordset.IsOpen()) recordset.Close();
}

QStringList ReadClassNames(const QString& table) {
    QStringList names;
    database::Recordset recordset;
    if (OpenRecordset(recordset, u"SELECT * FROM "_s + table + u" ORDER BY 区分"_s))
        for (; !recordset.AtEOF(); recordset.MoveNext()) names.append(recordset[u"名称"].TextOr(QString()));
    CloseQuietly(recordset);
    return names;
}

void PurgeOldData() {
    for (const AgedTable& aged : kAgedTables) PurgeTable(aged);
}
