#pragma once

#include <QString>

// Conversions of typed text. None of them fails.

/// Converts half-width digits, letters, symbols and kana to full-width; a half-width kana with the voiced or
/// semi-voiced mark after it becomes one character. Blank, double quote, "^", backquote, ｡｢｣､･ and a mark without such
/// a kana before it stay half-width; all other characters are unchanged.
QString ToFullWidth(const QString& text);

/// Converts hiragana and full-width katakana to half-width katakana, a voiced or semi-voiced one to two characters, and
/// ー・「」。、゛゜ to half-width. All other characters are unchanged, also kana without a half-width form
/// (ヮヰヱヵヶ).
QString ToHalfWidthKana(const QString& text);
