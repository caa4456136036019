#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <ostream>

// Prints QString as text instead of UTF-16 numbers in failed comparisons. Included by the precompiled header.

inline void PrintTo(const QString& text, std::ostream* out) {
    if (text.isNull())
        *out << "(null)";
    else
        *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QStringList& texts, std::ostream* out) {
    if (texts.isEmpty())
        *out << "[]";
    else
        *out << "[\"" << texts.join(QStringLiteral("\", \"")).toStdString() << "\"]";
}
inline void PrintTo(const QColor& color, std::ostream* out) { *out << color.name().toStdString(); }
