#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "report-host/template/TemplateError.h"

namespace report {

/// One word of a line: quoted text, "name=value", or a bare word.
struct FormWord {
    QString text;  ///< without its quotes; of "name=value" the value
    QString name;  ///< of "name=value"; otherwise empty
    bool quoted = false;
    bool IsSetting() const { return !name.isEmpty(); }
};

/// One line of a form: the command, then its words.
struct TemplateToken {
    int number = 0;
    QString command;
    QList<FormWord> words;
};

/// Nothing for an empty line and for one that only holds a remark. Words stand apart by blanks of either width, text
/// with blanks stands in double quotes (a quote within is doubled), "#" at the head of a word begins a remark. Throws
/// TemplateError.
std::optional<TemplateToken> ReadFormLine(const QString& text, int number);

}  // namespace report
