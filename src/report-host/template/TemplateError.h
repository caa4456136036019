#pragma once

#include <QString>

namespace report {

/// What is wrong with a form. Thrown while a line is read, then kept.
struct TemplateError {
    int line = 0;    ///< counted from 1; 0: the form as a whole
    QString reason;  ///< a Japanese sentence

    /// "12 行目: …", or the reason alone where it is no matter of one line.
    /// The middle of a reason that quotes a text without end is left out.
    QString Text() const {
        constexpr qsizetype kLongest = 300, kEnd = 60;
        const QString shown =
            reason.size() > kLongest ? reason.left(kLongest - kEnd) + u'…' + reason.right(kEnd) : reason;
        return line > 0 ? QStringLiteral("%1 行目: ").arg(line) + shown : shown;
    }
};

}  // namespace report
