#pragma once

#include <QString>

/// Where the printed pages of a report go: to a printer, or as a PDF into a folder.
struct OutputTarget {
    enum class Kind { DefaultPrinter, Printer, Folder };
    Kind kind = Kind::DefaultPrinter;
    QString name;  ///< the printer's name, or the folder's path
};

/// Prefix of the hidden folder in which pages are written before they are handed over. A killed host leaves it; the
/// next print of the same user there removes it.
inline const QString kPrintFolderPrefix = QStringLiteral(".youin-meibo-print-");

// Targets are stored in the table 出力先 of the forms file: one row for a report, and one with an empty report's name
// for all that have none. Without a row, or without the table, it is the default printer.

/// The target of a report. Throws ReportFailure when the forms file can't be read or names an unknown kind.
OutputTarget ReadOutputPlace(const QString& formsFile, const QString& report);
/// An empty `report` means all that have no row; the default printer takes the row away. Throws
/// database::DatabaseError.
void WriteOutputPlace(const QString& formsFile, const QString& report, const OutputTarget& place);
