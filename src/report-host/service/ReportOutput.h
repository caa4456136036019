#pragma once

#include <QString>

class PreparedReport;

/// Of the hidden folder in which pages are written before they are handed over. A killed host leaves it; the next print
/// of the same user there removes it.
inline const QString kPrintFolderPrefix = QStringLiteral(".youin-meibo-print-");

/// Puts all pages of a report where its forms file says, and returns when they have been handed over. Throws
/// ReportFailure.
void PrintReport(PreparedReport& report, const QString& name, const QString& formsFile);
