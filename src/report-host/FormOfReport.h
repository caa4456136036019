#pragma once

#include "platform/database/SqliteHandle.h"
#include "report-host/FormMistake.h"
#include "report-host/FormParser.h"
#include "report-host/FormsFile.h"

namespace report {

/// The linked table that a form reads.
QString TableOfForm(const FormDefinition& form, const QString& report);

/// Opens the file behind a link for reading. Throws platform::DatabaseError.
platform::SqliteDatabase OpenLinked(const LinkedTable& link);

/// Everything that would keep the text from becoming a report of that name: mistakes of its lines, a link that is not
/// there or leads nowhere, columns that its table lacks.
QList<FormMistake> MistakesOf(const FormsFile& file, const QString& report, const QString& text);

}  // namespace report
