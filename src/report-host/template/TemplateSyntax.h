#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "report-host/template/ReportErrors.h"
#include "report-host/template/TemplateDefinition.h"

// Syntax of the lines of a template, for the parser.

namespace report {

/// A word of a line: a quoted string, "name=value", or a bare word.
struct TemplateWord {
    QString text;  ///< without quotes; for "name=value" the value
    QString name;  ///< for "name=value"; otherwise empty
    bool quoted = false;
    bool IsSetting() const { return !name.isEmpty(); }
};

/// A tokenized line: the command and its words.
struct TemplateToken {
    int number = 0;  ///< of the line, from 1
    QString command;
    QList<TemplateWord> words;
};

/// Tokenizes a line; nullopt if it is empty or a comment. Words are separated by half-width or full-width blanks; text
/// with blanks is enclosed in double quotes, a quote inside is doubled; "#" at the start of a word begins a comment.
/// `number`: line number, from 1. Throws TemplateError.
std::optional<TemplateToken> ReadTemplateLine(const QString& text, int number);

/// The objects that the settings of a line modify.
struct SettingTarget {
    TemplateDefinition& definition;
    TemplateElement& element;
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
