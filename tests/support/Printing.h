#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <ostream>

// Lets a failing test show texts as people read them. Every test file includes this by a compiler option.

inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QStringList& texts, std::ostream* out) {
    *out << "[\"" << texts.join(QStringLiteral("\", \"")).toStdString() << "\"]";
}
inline void PrintTo(const QColor& color, std::ostream* out) { *out << color.name().toStdString(); }
