#pragma once

#include "report-host/template/TemplateDefinition.h"
#include "report-host/template/TemplateToken.h"

namespace report {

/// What the settings of one line change.
struct SettingTarget {
    FormDefinition& form;
    FormElement& element;
};

/// Applies the words of the line from `firstWord` on. Throws TemplateError without a line for a setting that the
/// command doesn't know, one that stands twice, and a value that it can't take.
void ApplySettings(const TemplateToken& line, qsizetype firstWord, SettingTarget target);

/// A type size. Throws TemplateError without a line.
double ReadPoints(const QString& text, const QString& what);

/// The face of a name (明朝, ゴシック, Ｐ明朝, Ｐゴシック). Throws TemplateError without a line.
SuiteFace ReadFace(const QString& text);

}  // namespace report
