#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "report-host/template/TemplateError.h"

namespace report {

/// A word of a line: a quoted string, "name=value", or a bare word.
struct FormWord {
    QString text;  ///< without quotes; for "name=value" the value
    QString name;  ///< for "name=value"; otherwise empty
    bool quoted = false;
    bool IsSetting() const { return !name.isEmpty(); }
};

/// A tokenized line: the command and its words.
struct TemplateToken {
    int number = 0;
    QString command;
    QList<FormWord> words;
};

/// Tokenizes a line; nullopt if it is empty or a comment. Words are separated by half-width or full-width blanks; text
/// with blanks is enclosed in double quotes, a quote inside is doubled; "#" at the start of a word begins a comment.
/// `number`: line number, from 1. Throws TemplateError.
std::optional<TemplateToken> ReadFormLine(const QString& text, int number);

}  // namespace report
