#pragma once

#include "setup/Arguments.h"
#include "setup/Console.h"

namespace setup {

QList<OptionRule> FormFileOptions();
QList<OptionRule> FormCheckOptions();

/// Writes the forms of an installation, or the one that is named, into text files of their names.
void ExportForms(const Arguments& arguments, const Console& console);

/// Reads them back. A form with a mistake is told and none is taken over. Throws FormsFailure.
void ImportForms(const Arguments& arguments, const Console& console);

/// Tells every mistake of the forms, or of the one that is named, by line and reason; also of columns that the linked
/// work table lacks. Throws FormsFailure when there is one.
void CheckForms(const Arguments& arguments, const Console& console);

}  // namespace setup
