#pragma once

#include "report-host/template/TemplateDefinition.h"
#include "report-host/template/TemplateError.h"

namespace report {

/// Checks that need the whole template: missing parts, and parts that do not fit. Appends the errors to `mistakes` and
/// sorts it by line.
void CheckForm(const FormDefinition& form, QList<TemplateError>& mistakes);

/// Columns of the linked table that the template uses, without duplicates, in order of use. `table`: the columns that
/// exist; a name with a cell prefix is preferred to the name alone. A name that is neither a column nor a built-in
/// field is an error. Errors are appended to `mistakes`.
QStringList NeededColumns(const FormDefinition& form, const QStringList& table, QList<TemplateError>& mistakes);

/// Number of rows on a page; 0 if the detail section does not fit.
int RowsPerPage(const FormDefinition& form);

/// Page width without margins, in millimetres.
double InnerWidth(const FormDefinition& form);

}  // namespace report
