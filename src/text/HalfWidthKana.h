#pragma once

#include <QString>

/// Hiragana and katakana as half-width katakana, a voiced one as two characters; everything else unchanged.
QString ToHalfWidthKana(const QString& text);
