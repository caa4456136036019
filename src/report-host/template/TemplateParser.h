#pragma once

#include "report-host/template/ReportErrors.h"
#include "report-host/template/TemplateDefinition.h"

// Parser of report templates.

namespace report {

struct ParsedTemplate {
    TemplateDefinition definition;
    QList<TemplateError> errors;  ///< sorted by line; if not empty, `definition` must not be used
};

/// Parses the text of a template. Continues after errors, so that all of them are reported at once. Does not throw.
ParsedTemplate ParseTemplate(const QString& text);

/// Checks that need the whole template: missing parts, and parts that do not fit. Appends the errors to `errors` and
/// sorts it by line.
void CheckTemplate(const TemplateDefinition& definition, QList<TemplateError>& errors);

/// Columns of the linked table that the template uses, without duplicates, in order of use. `table`: the columns that
/// exist; a name with a cell prefix is preferred to the name alone. A name that is neither a column nor a built-in
/// field is an error. Errors are appended to `errors`.
QStringList NeededColumns(const TemplateDefinition& definition, const QStringList& table, QList<TemplateError>& errors);

/// Number of rows on a page; 0 if the detail section does not fit.
int RowsPerPage(const TemplateDefinition& definition);

/// Page width without margins, in millimetres.
double InnerWidth(const TemplateDefinition& definition);

/// Formats a date as "令和08年11月21日", with the newest era that has begun by that day. The year of the era is counted
/// by calendar years, as in the work tables. Without an era: "2026年11月21日".
QString EraDate(QDate day, const QList<EraStart>& eras);

}  // namespace report
