#pragma once

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

namespace setup {

QList<OptionRule> FormFileOptions();
QList<OptionRule> FormCheckOptions();
QList<OptionRule> FormPdfOptions();

/// Exports the templates of an installation, or the named one, to text files of the same names.
void ExportForms(const Arguments& arguments, const Console& console);

/// Imports such files. Invalid templates are reported, and then none is imported. Throws platform::RuntimeError.
void ImportForms(const Arguments& arguments, const Console& console);

/// Prints every error in the templates, or in the named one, with line and reason; also columns that the linked work
/// table lacks. Throws platform::RuntimeError if there is any.
void CheckForms(const Arguments& arguments, const Console& console);

/// Renders the named template with the rows of its work table to a PDF. Needs a QGuiApplication for the fonts.
void MakeFormPdf(const Arguments& arguments, const Console& console);

}  // namespace setup
