#pragma once

#include <QColor>
#include <QFont>

/// The four fonts of the suite, substituted by similar free Japanese fonts if they are not installed.
enum class SuiteFace { Mincho, PMincho, Gothic, PGothic };

/// A font of `points` at 96 dpi, independent of the screen's resolution.
QFont SuiteFont(SuiteFace face, double points);

/// Background of captions and of selection windows.
inline constexpr QColor kCaptionColor(0xFF, 0xE0, 0xC0);
