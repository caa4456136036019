#pragma once

#include "report-host/template/TemplateDefinition.h"
#include "report-host/template/TemplateError.h"

namespace report {

struct ParsedForm {
    FormDefinition form;
    QList<TemplateError> mistakes;  ///< by line; with any, the form must not be used
};

/// Reads the text of a form to its end, whatever mistakes it has, so that all of them can be told at once.
ParsedForm ParseForm(const QString& text);

}  // namespace report
