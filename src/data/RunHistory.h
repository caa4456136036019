#pragma once

#include <QString>

// Writers of プログラム稼動履歴. They never disturb the work that they record: whatever the INSERT runs into is
// swallowed, and the row's number stays used up.

/// The statement of the common row with the present time, ProcCounter as it stands, office, staff member and user.
/// `content` stands between the statement's quotes as it is.
QString BuildHistoryStatement(const QString& content);
/// The common row: takes the time, adds 1 to ProcCounter and runs the INSERT on the configuration connection.
/// Throws database::DatabaseError.
void InsertHistoryRow(const QString& content);

void RecordRunEnd();
/// `text` is quoted twice, so that a stored statement reads with its quotes doubled. That is how the history has
/// always shown statements.
void RecordOutputStart(const QString& text);
void RecordOutputEnd(const QString& text);
void RecordRunError(const QString& text);
