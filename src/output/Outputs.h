#pragma once

#include <QString>
#include <functional>

/// Common steps of all outputs. Opens the report database and shows the wait dialog; runs `build`, which fills a work
/// table and returns whether it has rows; then runs `output`, or shows the message `nothing` if there are no rows;
/// closes dialog and connection. If the installation has no report database, only shows a message. Exceptions propagate
/// without cleanup: dialog and connection stay open.
void RunOutput(bool (*build)(), const std::function<void()>& output, const QString& nothing);

// Complete outputs on the report host (ReportRunner.cpp), each a RunOutput. An error of the report database propagates
// as database::DatabaseError.

/// Prints the list: on the default printer, or as the report's output target says
/// (report-host/template/OutputTarget.h).
void RunReportPrint();
/// Shows the list in the report host's preview.
void RunReportPreview();
/// Print mail pieces for the checked rows in the same way, each kind with its own work table and template.
void RunEnvelopePrint();
void RunPostcardPrint();
void RunLabelPrint();

// Last steps of these: start the report host on the template file in use and have it print or show the template
// `report`, whose work table is filled. The report database is closed meanwhile and reopened afterwards. Start and end
// are logged in the run history, also after an error. They throw nothing.

/// Prints; returns when the job has been handed over and the host has ended. An error is shown in a message box; the
/// host is then left running.
void PrintReportOnHost(const QString& report);
/// Returns when the host shows the preview; the host runs until the user closes it. Errors are ignored silently.
void PreviewReportOnHost(const QString& report);

/// Complete text output to Globals().TextOutputFileName (TextOutput.cpp): RunOutput with WriteWorkTableToText. Errors
/// propagate.
void RunTextOutput();

/// Last step of it: writes the list's work table to the file while the main form is disabled, and logs start and end in
/// the run history. Shows in お知らせ how many characters in how many lines code page 932 cannot encode. The report
/// database must be open. A write error throws platform::RuntimeError; the main form then stays disabled.
void WriteWorkTableToText();
