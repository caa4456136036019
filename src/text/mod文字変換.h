#pragma once

#include <QString>

/// Converts half-width digits, letters, symbols and kana to full-width; a half-width kana followed by a voiced or
/// semi-voiced mark becomes one character. Blank, double quote, "^", backquote, ｡｢｣､･ and a mark that no kana precedes
/// stay half-width; all other characters are unchanged.
QString ToFullWidth(const QString& text);

/// Normalises hiragana and katakana to half-width katakana, voiced ones to two characters; all other characters are
/// unchanged.
QString ToHalfWidthKana(const QString& text);
