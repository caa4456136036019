#pragma once

#include <QString>
#include <QStringList>

#include "setup/checks/CheckReport.h"

namespace setup {

/// Checks the output targets of a template file: printers that the printing system does not know, folders that are
/// missing, and targets of reports that do not exist. Throws database::DatabaseError.
void CheckTargets(CheckReport& report, const QString& root, const QString& templateFile, const QStringList& reports);

/// What the printing system (CUPS) knows of a printer; NoService: it does not respond.
enum class PrinterState { Known, Unknown, NoService };
PrinterState FindPrinter(const QString& name);

}  // namespace setup
