#pragma once

#include "report-host/template/TemplateDefinition.h"
#include "report-host/template/TemplateError.h"

namespace report {

struct ParsedForm {
    FormDefinition form;
    QList<TemplateError> mistakes;  ///< sorted by line; if not empty, `form` must not be used
};

/// Parses the text of a template. Continues after errors, so that all of them are reported at once. Does not throw.
ParsedForm ParseForm(const QString& text);

}  // namespace report
