#pragma once

#include <QString>

class PreparedReport;

/// Prints a report to its output target (see OutputTarget.h) and returns when the job has been handed over. `name`: the
/// report's; `formsFile`: path of the template file. Throws ReportFailure.
void PrintReport(PreparedReport& report, const QString& name, const QString& formsFile);
