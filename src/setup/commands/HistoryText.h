#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "setup/commands/HistoryRuns.h"

// The run history as text for a terminal and for a spreadsheet.

namespace setup {

/// 摘要 of a row in its parts.
struct HistoryText {
    QString head;         ///< the kind of row and, of an error, its description
    QString statement{};  ///< the SQL statement, without the doubling of its quotes; empty if there is none
};
HistoryText PartsOf(const HistoryRow& row);

// Columns are aligned by terminal width; 摘要 is last and never truncated, and a statement is on a separate line.

/// Title of a run: `name`, then time, program and user of its first row.
QString RunTitle(const QString& name, const HistoryRow& first);
QString RowHeading();
/// One line, or two if the row has a statement.
QStringList RowLines(const HistoryRow& row);
/// A run with title and heading, and a remark if its start or end row is missing; `number` counts from the newest,
/// which is 1.
QStringList RunLines(const HistoryRun& run, int number);
/// Only its title and errors.
QStringList ErrorLines(const HistoryRun& run, int number);

/// A run as one line of cells for PrintAligned, and the heading of these lines.
QStringList RunCells(const HistoryRun& run, int number);
QStringList RunCellsHeading();

/// A row as a line of a CSV file: UTF-8, all cells quoted, CR LF; and the heading, which begins with a byte order mark.
QByteArray CsvLine(const HistoryRow& row, int run);
QByteArray CsvHeading();

}  // namespace setup
