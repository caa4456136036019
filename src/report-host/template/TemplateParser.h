#pragma once

#include "report-host/template/ReportErrors.h"
#include "report-host/template/TemplateDefinition.h"

// Parser of report templates.

namespace report {

// Parsing and checking of templates, and figures that follow from one (TemplateCheck.cpp).

/// Result of ParseTemplate.
struct ParsedTemplate {
    TemplateDefinition definition;
    QList<TemplateError> errors;  ///< sorted by line; if not empty, `definition` must not be used
};

/// Parses the text of a template and runs CheckTemplate. Continues after errors, so that all of them are reported at
/// once. Does not throw.
ParsedTemplate ParseTemplate(const QString& text);

/// Checks that need the whole template: missing parts, and parts that do not fit. Appends the errors to `errors` and
/// sorts it by line.
void CheckTemplate(const TemplateDefinition& definition, QList<TemplateError>& errors);

/// Columns of the linked table that the template's elements use, without duplicates, in order of use. `table`: the
/// columns that exist. In the detail section, columns whose name is a cell's prefix and the used name are preferred to
/// the name alone. A name that is no column is an error, except a built-in field in a text. Errors are appended to
/// `errors`, which is then sorted by line.
QStringList NeededColumns(const TemplateDefinition& definition, const QStringList& table, QList<TemplateError>& errors);

/// Number of rows (records) on a page; 0 if the detail section does not fit.
int RowsPerPage(const TemplateDefinition& definition);

/// Page width without margins, in millimetres.
double InnerWidth(const TemplateDefinition& definition);

/// Formats a date as "令和08年11月21日", with the newest era that has begun by that day. The year of the era is counted
/// by calendar years, as in the work tables. Without an era: "2026年11月21日".
QString EraDate(QDate day, const QList<EraStart>& eras);

}  // namespace report
