#pragma once

#include <QString>

/// Where a report is printed: a printer, or as PDF into a folder.
struct OutputTarget {
    enum class Kind { DefaultPrinter, Printer, Folder };
    Kind kind = Kind::DefaultPrinter;
    QString name;  ///< printer name or folder path; empty for the default printer
};

/// Prefix of the name of the temporary folder in which a PDF is written before it is handed over. A killed host leaves
/// the folder; the user's next print to the same place removes it.
inline const QString kPrintFolderPrefix = QStringLiteral(".youin-meibo-print-");

// The targets are stored in table 出力先 of the template file: a row for each report, and one with an empty name for
// all others. Without a row or without the table the default printer is used.

/// Output target of a report. Throws ReportFailure if the template file can't be read or contains an unknown kind.
OutputTarget ReadOutputTarget(const QString& templateFile, const QString& report);
/// Stores the target of a report; an empty `report` means all reports without a row. The default printer deletes the
/// row. Throws database::DatabaseError.
void WriteOutputTarget(const QString& templateFile, const QString& report, const OutputTarget& target);
