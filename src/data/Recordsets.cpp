#include "data/Recordsets.h"

#include "data/RunHistory.h"
#include "globals/ProgramGlobals.h"

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

}  // namespace

bool OpenRecordset(database::Recordset& recordset, const QString& sql, bool record) {
    try {
        const bool found = OpenOn(Globals().MainConnection, recordset, sql);
        if (record) RecordOutputEnd(sql);
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
