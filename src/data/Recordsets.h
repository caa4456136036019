#pragma once

#include <QString>
#include <QStringList>

#include "database/Database.h"

// Statements on MainConnection (general database) and ConfigConnection (configuration database). No function shows a
// message. A failed statement returns false, like an empty result, and leaves a row エラー in the run history with the
// error's description followed by the statement.
//
// The caller closes the recordset, also if the result is false. After a failure the recordset is not open, and Close()
// throws, which is how a failed read aborts a start; after an empty result it is open. Use CloseQuietly to continue in
// either case.

/// Whether a successful statement is recorded in the run history, as 出力終了 with the statement.
enum class LogStatement { No, Yes };

/// True if the SELECT on the general database returned a row, which is then the current one.
bool OpenRecordset(database::Recordset& recordset, const QString& sql, LogStatement log = LogStatement::No);
// On the configuration database. A failed statement that names the history table writes no error row.

/// True if the SELECT returned a row, which is then the current one.
bool OpenConfigRecordset(database::Recordset& recordset, const QString& sql);
/// True if the statement succeeded.
bool ExecuteConfigSql(const QString& sql);
/// The same; success is followed by a history row 出力終了 with the statement.
bool ExecuteConfigSqlLogged(const QString& sql);

/// Closes a recordset if it is open.
void CloseQuietly(database::Recordset& recordset) noexcept;

/// The column 名称 of a class table (K性別区分 etc.) of the general database in the order of 区分, "" for a Null. Empty
/// if the table cannot be read.
QStringList ReadClassNames(const QString& table);

/// Deletes old rows from the configuration database: run history after 6 months, link messages and clipboards after 3
/// days, rows exactly at the limit included. To be called by the suite's menu program only. Throws
/// database::DatabaseError if a table cannot be read; a failed deletion is only recorded.
void PurgeOldData();
