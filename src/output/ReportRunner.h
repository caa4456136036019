#pragma once

#include <QString>

/// The whole way of the list's print: report database, wait dialog, work table, host. Shows what keeps it from
/// printing. A failure of the report database rises as database::DatabaseError and leaves the wait dialog standing.
void RunReportPrint();
/// The same on the screen.
void RunReportPreview();

// Starts the report host on the forms file in use and has it bring out one report, whose work table is filled. The
// report database is closed while the host runs and open again afterwards. Each attempt has a row at its beginning and
// its end in the run history, whatever became of it. No failure rises.

/// On paper. Returns when the print has been handed over and the host is gone. A failure is told in a message box; the
/// host is then left as it is.
void PrintReportOnHost(const QString& report);
/// On the screen, where the host stays until the user closes it. A failure is told to nobody.
void PreviewReportOnHost(const QString& report);
