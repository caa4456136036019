#pragma once

#include <QString>

// The run history プログラム稼動履歴, which is the log of the programs. Logging does not disturb the logged operation: a
// failed INSERT is ignored, except in InsertHistoryRow, and its number stays used.

/// INSERT of a history row with the current time, ProcCounter, office, staff member and user. `content` is put between
/// quotes unchanged, so the caller must escape it.
QString BuildHistoryStatement(const QString& content);
/// Increments ProcCounter and inserts a history row through the configuration connection. Throws
/// database::DatabaseError.
void InsertHistoryRow(const QString& content);

void RecordRunEnd();
/// `text` is escaped twice, so a statement is stored with its quotes doubled, as the history has always contained it.
void RecordOutputStart(const QString& text);
void RecordOutputEnd(const QString& text);
void RecordRunError(const QString& text);
