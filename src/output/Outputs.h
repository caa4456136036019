#pragma once

#include <QString>
#include <functional>

/// Common steps of all outputs: opens the report database, shows the wait dialog, runs `build`, then `output` if it
/// returned true, otherwise a message box with `nothing`; closes dialog and connection. If the installation has no
/// report database, only shows a message. Exceptions propagate without cleanup: dialog and connection stay open.
void RunOutput(bool (*build)(), const std::function<void()>& output, const QString& nothing);

// Complete outputs on the report host: report database, wait dialog, work table, host. If there is nothing to print or
// no report database, they show a message. An error of the report database propagates as database::DatabaseError and
// leaves the wait dialog open.

/// Prints the list on the report host's default printer.
void RunReportPrint();
/// Shows the list in the report host's preview.
void RunReportPreview();
/// Print mail pieces for the checked rows, each with its own work table and report.
void RunEnvelopePrint();
void RunPostcardPrint();
void RunLabelPrint();

// Start the report host on the forms file in use and have it render one report, whose work table is filled. The report
// database is closed while the host runs and reopened afterwards. Start and end are logged in the run history, also
// after an error. Errors never propagate.

/// Prints and returns when the job has been handed over and the host has ended. An error is shown in a message box; the
/// host is then left running.
void PrintReportOnHost(const QString& report);
/// Shows the preview; the host runs until the user closes it. Errors are ignored silently.
void PreviewReportOnHost(const QString& report);

/// Complete text output to Globals().TextOutputFileName: report database, wait dialog, work table, file. Errors
/// propagate without cleanup of screen and connection.
void RunTextOutput();

/// Writes the list's work table to the file while the main form is disabled, and logs it in the run history. Shows the
/// number of characters that code page 932 cannot encode in お知らせ. The report database must be open. A write error
/// throws platform::RuntimeError; the main form then stays disabled.
void WriteWorkTableToText();
