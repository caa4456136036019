#pragma once

#include <QString>

#include "database/Database.h"

// All access to the general database and to the configuration database. None of these shows a message: a failed
// read looks like an empty result, and its trace is a row エラー of the run history with the description followed
// by the statement.
//
// The recordset is the caller's to close, also when the result is False. False with an open recordset means no
// rows; after a failure it is not open, and Close() raises: that is how a failed read stops a start.

/// True when the statement on the general database gave a row. `record` asks for a row 出力終了 with the statement.
bool OpenRecordset(database::Recordset& recordset, const QString& sql, bool record);
/// True when the statement on the configuration database gave a row. A failing statement that names the history
/// table writes no error row.
bool OpenConfigRecordset(database::Recordset& recordset, const QString& sql);
/// True when the statement ran on the configuration database.
bool ExecuteConfigSql(const QString& sql);
/// The same, and a row 出力終了 with the statement follows a success.
bool ExecuteConfigSqlLogged(const QString& sql);

/// Closes a recordset that may never have opened, for callers that go on either way.
void CloseQuietly(database::Recordset& recordset) noexcept;
