#pragma once

#include <QSizeF>
#include <QString>

class PreparedReport;

/// Prints a report to its output target (see OutputTarget.h). Returns when the print queue has the job or the PDF is in
/// its folder. `name`: the report's; `templateFile`: path of the template file, which has the targets. Throws
/// ReportFailure, ReportStopped when cancelled, and database::DatabaseError if the rows can't be read.
void PrintReport(PreparedReport& report, const QString& name, const QString& templateFile);

/// Submits a PDF to the print queue; the spooler has its own copy when this returns. `pdf`: path of the file;
/// `printer`: name of the queue, empty for the user's default printer; `title`: of the job; `page`: size in
/// millimetres. If the printer reports its paper sizes, this one must be among them, since it would otherwise silently
/// print on another. Throws ReportFailure if there is no print service, no such printer or paper, or the job is
/// rejected.
void HandToPrinter(const QString& pdf, const QString& printer, const QString& title, QSizeF page);
