#pragma once

#include "database/sqlite/SqliteHandle.h"
#include "report-host/template/TemplateError.h"
#include "report-host/template/TemplateFile.h"
#include "report-host/template/TemplateParser.h"

namespace report {

/// Name of the linked table that a template reads: the one it names, otherwise the report's name.
QString TableOfForm(const FormDefinition& form, const QString& report);

/// Opens the database file of a linked table for reading. Throws database::DatabaseError.
database::SqliteDatabase OpenLinked(const LinkedTable& link);

/// All errors that keep `text` from working as template of `report`: syntax errors, a missing or broken linked table,
/// unknown columns. Nothing is stored.
QList<TemplateError> MistakesOf(const FormsFile& file, const QString& report, const QString& text);

}  // namespace report
