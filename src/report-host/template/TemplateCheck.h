#pragma once

#include "report-host/template/TemplateDefinition.h"
#include "report-host/template/TemplateError.h"

namespace report {

/// What can only be seen when all lines are read: parts that are missing, and parts that don't find room. Mistakes are
/// added and put in the order of their lines.
void CheckForm(const FormDefinition& form, QList<TemplateError>& mistakes);

/// Columns of the linked table that the form needs, each once, in the order of their first use. `table` are those that
/// the table has: they decide between a name and the same name behind a prefix. A column that is neither there nor a
/// running value is a mistake.
QStringList NeededColumns(const FormDefinition& form, const QStringList& table, QList<TemplateError>& mistakes);

/// How many rows a page takes; 0 where the detail finds no room.
int RowsPerPage(const FormDefinition& form);

/// Width of a page between its margins.
double InnerWidth(const FormDefinition& form);

}  // namespace report
