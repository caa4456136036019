#pragma once

#include <QString>
#include <functional>

/// Common steps of all outputs. Opens the report database and shows the wait dialog; runs `build`, which fills a work
/// table and returns whether it has rows; then runs `output`, or shows the message `nothing` if there are no rows;
/// closes dialog and connection. If the installation has no report database, only shows a message. Returns the result
/// of `output`, false if it was not run. Exceptions propagate without cleanup: dialog and connection stay open.
bool RunOutput(bool (*build)(), const std::function<bool()>& output, const QString& nothing);

// Complete outputs on the report host (ReportRunner.cpp), each a RunOutput. An error of the report database propagates
// as database::DatabaseError. True if the report has been handed over or is shown.

/// Prints the list: on the default printer, or as the report's output target says
/// (report-host/template/OutputTarget.h).
bool RunReportPrint();
/// Shows the list in the report host's preview.
bool RunReportPreview();
/// Print mail pieces for the checked rows in the same way, each kind with its own work table and template.
bool RunEnvelopePrint();
bool RunPostcardPrint();
bool RunLabelPrint();

// Last steps of these: start the report host on the template file in use and have it print or show the template
// `report`, whose work table is filled. The report database is closed meanwhile and reopened afterwards. Start and end
// are logged in the run history, also after an error. They throw nothing and return false after an error.

/// Prints; returns when the job has been handed over and the host has ended. An error is shown in a message box; the
/// host is then left running.
bool PrintReportOnHost(const QString& report);
/// Returns when the host shows the preview; the host runs until the user closes it. Errors are ignored silently.
bool PreviewReportOnHost(const QString& report);

/// Complete text output to Globals().TextOutputFileName (TextOutput.cpp): RunOutput with WriteWorkTableToText. Errors
/// propagate.
bool RunTextOutput();

/// Last step of it: writes the list's work table to the file while the main form is disabled, and logs start and end in
/// the run history. Shows in お知らせ how many characters in how many lines code page 932 cannot encode. The report
/// database must be open. False if the work table has no rows or cannot be read; then no file is written. A write error
/// throws platform::RuntimeError; the main form then stays disabled.
bool WriteWorkTableToText();
