#pragma once

#include <QString>
#include <ostream>

/// Texts in a failed comparison as they read, and not as UTF-16 numbers.
inline void PrintTo(const QString& text, std::ostream* out) {
    if (text.isNull())
        *out << "(null)";
    else
        *out << '"' << text.toStdString() << '"';
}
