#pragma once

#include <QString>

class PreparedReport;

/// Puts all pages of a report where its forms file says, and returns when they have been handed over. Throws
/// ReportFailure.
void PrintReport(PreparedReport& report, const QString& name, const QString& formsFile);
