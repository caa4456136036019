#pragma once

#include <QString>

// Conversions of typed text. None of them fails.

/// Converts half-width digits, letters, symbols and kana to full-width; a half-width kana with the voiced or
/// semi-voiced mark after it becomes one character. Blank, double quote, "^", backquote, ｡｢｣､･ and a mark without such
/// a kana before it stay half-width; all other characters are unchanged.
QString ToFullWidth(const QString& text);

/// Converts hiragana and full-width katakana to half-width katakana, a voiced or semi-voiced one to two characters, and
/// ー・「」。、゛゜ and the combining marks U+3099 and U+309A to half-width. All other characters are unchanged, also
/// kana without a half-width form (ヮヰヱヵヶ).
QString ToHalfWidthKana(const QString& text);

/// Converts the full-width forms of the printable ASCII characters, the full-width blank and ￥「」‘’“”〜 to
/// half-width, and the dashes that input methods type for a hyphen (－‐‑‒–—―−─ー) to "-"; a ｰ only after a digit, since
/// it is part of half-width kana elsewhere. All other characters are unchanged, also kana and kanji.
QString ToHalfWidth(const QString& text);

/// Joins each kana and the combining voiced or semi-voiced mark (U+3099, U+309A) after it to one character, as far as
/// there is one. File names and texts of some systems are written so. All other characters are unchanged.
QString ComposeKana(const QString& text);
