#pragma once

#include <QString>

/// Half-width digits, letters, signs and kana as their full-width forms; a half-width kana with its voiced or
/// semi-voiced mark becomes one character. Blank, double quote, "^", backquote, ｡｢｣､･ and a mark without a kana that
/// takes it stay half-width, as does everything else that no rule names.
QString ToFullWidth(const QString& text);
