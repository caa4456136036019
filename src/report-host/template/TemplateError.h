#pragma once

#include <QString>

namespace report {

/// An error in a template. Thrown while a line is parsed and then collected.
struct TemplateError {
    int line = 0;    ///< counted from 1; 0: not related to a line
    QString reason;  ///< Japanese sentence

    /// "12 行目: …", or only the reason if the error has no line. A long reason is shortened in the middle.
    QString Text() const {
        constexpr qsizetype kLongest = 300, kEnd = 60;
        const QString shown =
            reason.size() > kLongest ? reason.left(kLongest - kEnd) + u'…' + reason.right(kEnd) : reason;
        return line > 0 ? QStringLiteral("%1 行目: ").arg(line) + shown : shown;
    }
};

}  // namespace report
