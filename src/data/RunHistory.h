#pragma once

#include <QString>

// Rows of the run history, the log of the programs: table プログラム稼動履歴 of the configuration database. Each row
// has a number within the run of the program (ProcCounter). A failed INSERT is ignored, except in InsertHistoryRow, so
// that it does not disturb the operation that it records; its number is not used again.

/// INSERT statement of a history row with the current time, ProcCounter, office, staff member and user. `content`, the
/// column 摘要, is inserted between quotes as it is: the caller escapes it (QuoteSqlText).
QString BuildHistoryStatement(const QString& content);
/// Increments ProcCounter and inserts a history row through ConfigConnection; `content` as above. Throws
/// database::DatabaseError.
void InsertHistoryRow(const QString& content);

/// Inserts a row 終了.
void RecordRunEnd();

// Insert a row 出力開始, 出力終了 or エラー, followed by a blank and `text`. `text` is escaped twice, so a statement is
// stored with its quotes doubled, as the history has always contained it. RecordOutputEnd omits the text that the
// suite's update monitor would record every minute.

void RecordOutputStart(const QString& text);
void RecordOutputEnd(const QString& text);
void RecordRunError(const QString& text);
