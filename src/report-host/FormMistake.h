#pragma once

#include <QString>

namespace report {

/// What is wrong with a form. Thrown while a line is read, then kept.
struct FormMistake {
    int line = 0;    ///< counted from 1; 0: the form as a whole
    QString reason;  ///< a Japanese sentence

    /// "12 行目: …", or the reason alone where it is no matter of one line.
    QString Text() const { return line > 0 ? QStringLiteral("%1 行目: %2").arg(line).arg(reason) : reason; }
};

}  // namespace report
