#pragma once

#include <QSizeF>
#include <QString>

class PreparedReport;

/// Prints a report to its output target (see OutputTarget.h) and returns when the job has been handed over. `name`: the
/// report's; `templateFile`: path of the template file. Throws ReportFailure.
void PrintReport(PreparedReport& report, const QString& name, const QString& templateFile);

/// Submits a PDF to the print queue; the spooler has its own copy when this returns. Empty `printer`: the user's
/// default printer. `page`: size in millimetres; if the printer reports its paper sizes, this one must be among them,
/// since it would otherwise silently print on another. Throws ReportFailure if there is no print service, no such
/// printer or paper, or the job is rejected.
void HandToPrinter(const QString& pdf, const QString& printer, const QString& title, QSizeF page);
