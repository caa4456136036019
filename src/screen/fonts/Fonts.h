#pragma once

#include <QColor>
#include <QFont>

/// The four faces of the suite. Where the machine lacks them, free Japanese fonts of the same kind stand in.
enum class SuiteFace { Mincho, PMincho, Gothic, PGothic };

/// A face in points at 96 dots an inch, whatever the screen says of itself.
QFont SuiteFont(SuiteFace face, double points);

/// Background of captions and of the selection windows.
inline constexpr QColor kCaptionColor(0xFF, 0xE0, 0xC0);
