#pragma once

#include "database/sqlite/SqliteHandle.h"
#include "report-host/template/TemplateError.h"
#include "report-host/template/TemplateFile.h"
#include "report-host/template/TemplateParser.h"

namespace report {

/// The linked table that a form reads.
QString TableOfForm(const FormDefinition& form, const QString& report);

/// Opens the file behind a link for reading. Throws database::DatabaseError.
database::SqliteDatabase OpenLinked(const LinkedTable& link);

/// Everything that would keep the text from becoming a report of that name: mistakes of its lines, a link that is not
/// there or leads nowhere, columns that its table lacks.
QList<TemplateError> MistakesOf(const FormsFile& file, const QString& report, const QString& text);

}  // namespace report
