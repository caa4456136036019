#pragma once

#include "report-host/FormDefinition.h"
#include "report-host/FormLine.h"

namespace report {

/// What the settings of one line change.
struct SettingTarget {
    FormDefinition& form;
    FormElement& element;
};

/// Applies the words of the line from `firstWord` on. Throws FormMistake without a line for a setting that the command
/// doesn't know, one that stands twice, and a value that it can't take.
void ApplySettings(const FormLine& line, qsizetype firstWord, SettingTarget target);

/// A type size. Throws FormMistake without a line.
double ReadPoints(const QString& text, const QString& what);

/// The face of a name (明朝, ゴシック, Ｐ明朝, Ｐゴシック). Throws FormMistake without a line.
SuiteFace ReadFace(const QString& text);

}  // namespace report
