#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

QList<OptionRule> FormFileOptions();
QList<OptionRule> FormCheckOptions();
QList<OptionRule> FormPdfOptions();

/// Writes the forms of an installation, or the one that is named, into text files of their names.
void ExportForms(const Arguments& arguments, const Console& console);

/// Reads them back. A form with a mistake is told and none is taken over. Throws platform::RuntimeError.
void ImportForms(const Arguments& arguments, const Console& console);

/// Tells every mistake of the forms, or of the one that is named, by line and reason; also of columns that the linked
/// work table lacks. Throws platform::RuntimeError when there
/// is one.
void CheckForms(const Arguments& arguments, const Console& console);

/// Makes a PDF of the form that is named and of what its work table holds. Needs a QGuiApplication for its fonts.
void MakeFormPdf(const Arguments& arguments, const Console& console);

}  // namespace setup
