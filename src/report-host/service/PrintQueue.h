#pragma once

#include <QSizeF>
#include <QString>

/// Submits a PDF to the print queue; the spooler has its own copy when this returns. Empty `printer`: the user's
/// default printer. `page`: size in millimetres; if the printer reports its paper sizes, this one must be among them,
/// since it would otherwise silently print on another. Throws ReportFailure if there is no print service, no such
/// printer or paper, or the job is rejected.
void HandToPrinter(const QString& pdf, const QString& printer, const QString& title, QSizeF page);
