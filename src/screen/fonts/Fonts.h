#pragma once

#include <QColor>
#include <QFont>

/// The four fonts of the suite (ＭＳ 明朝, ＭＳ Ｐ明朝, ＭＳ ゴシック, ＭＳ Ｐゴシック), substituted by similar free
/// Japanese fonts if they are not installed.
enum class SuiteFace { Mincho, PMincho, Gothic, PGothic };

/// A font whose size in pixels is that of `points` at 96 dpi, whatever the screen's resolution is.
QFont SuiteFont(SuiteFace face, double points);

/// Background of captions, list windows and value windows.
inline constexpr QColor kCaptionColor(0xFF, 0xE0, 0xC0);
