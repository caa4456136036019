#pragma once

/// Complete text output to Globals().TextOutputFileName: report database, wait dialog, work table, file. Errors
/// propagate without cleanup of screen and connection.
void RunTextOutput();

/// Writes the list's work table to the file while the main form is disabled, and logs it in the run history. Shows the
/// number of characters that code page 932 cannot encode in お知らせ. The report database must be open. A write error
/// throws platform::RuntimeError; the main form then stays disabled.
void WriteWorkTableToText();
