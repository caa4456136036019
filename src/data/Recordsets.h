#pragma once

#include <QString>
#include <QStringList>

#include "database/Database.h"

// All access to the general database and the configuration database. No function shows a message: a failed read looks
// like an empty result and leaves a row エラー in the run history with the description followed by the statement.
//
// The caller closes the recordset, also if the result is false. If false, an open recordset means no rows; after a
// failure it is not open and Close() throws, which is how a failed read aborts a start.

/// Whether a successful statement is recorded in the history, as 出力終了 with the statement.
enum class LogStatement { No, Yes };

/// True if the statement on the general database returned a row.
bool OpenRecordset(database::Recordset& recordset, const QString& sql, LogStatement log = LogStatement::No);
/// True if the statement on the configuration database returned a row. A failed statement that names the history table
/// writes no error row.
bool OpenConfigRecordset(database::Recordset& recordset, const QString& sql);
/// True if the statement on the configuration database succeeded.
bool ExecuteConfigSql(const QString& sql);
/// The same; success is followed by a history row 出力終了 with the statement.
bool ExecuteConfigSqlLogged(const QString& sql);

/// Closes a recordset that may not be open, for callers that continue in either case.
void CloseQuietly(database::Recordset& recordset) noexcept;

/// Names of a class table in the order of 区分, "" for a Null. Empty if the table cannot be read.
QStringList ReadClassNames(const QString& table);

/// Deletes aged rows of the tables shared by all programs of the suite: run history after 6 months, link messages and
/// clipboards after 3 days, rows exactly at the limit included. Only the suite's menu program calls it. Throws
/// database::DatabaseError if a table cannot be read.
void PurgeOldData();
