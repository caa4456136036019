#pragma once

#include "report-host/template/TemplateDefinition.h"
#include "report-host/template/TemplateToken.h"

namespace report {

/// The objects that the settings of a line modify.
struct SettingTarget {
    FormDefinition& form;
    FormElement& element;
};

/// Applies the settings of a line, from word `firstWord` on. Throws TemplateError without a line number for an unknown
/// or duplicate setting or an invalid value.
void ApplySettings(const TemplateToken& line, qsizetype firstWord, SettingTarget target);

/// Parses a font size in points. `what`: name of the value for the error message. Throws TemplateError without a line
/// number.
double ReadPoints(const QString& text, const QString& what);

/// Parses a font face (明朝, ゴシック, Ｐ明朝, Ｐゴシック). Throws TemplateError without a line number.
SuiteFace ReadFace(const QString& text);

}  // namespace report
