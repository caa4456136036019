#pragma once

/// The whole way of a text output to Globals().TextOutputFileName: report database, wait dialog, work table, file. What
/// rises from it leaves screen and connection as they then stand.
void RunTextOutput();

/// The list's work table into the file, the main form disabled and the run history told. Says in お知らせ how many
/// characters the file could not hold, if any. The report database is open. A failure while writing rises, and the
/// main form stays disabled.
void WriteWorkTableToText();
