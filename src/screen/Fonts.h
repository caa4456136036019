#pragma once

#include <QColor>
#include <QFont>

class QApplication;

/// The four faces of the suite. Where the machine lacks them, free Japanese fonts of the same kind stand in.
enum class SuiteFace { Mincho, PMincho, Gothic, PGothic };

/// A face in points at 96 dots an inch, whatever the screen says of itself.
QFont SuiteFont(SuiteFace face, double points);

/// Background of captions and of the selection windows.
inline constexpr QColor kCaptionColor(0xFF, 0xE0, 0xC0);

/// One look on every desktop: style, palette, default font and the substitutes of the faces. Before any window.
void ApplySuiteLook(QApplication& application);
