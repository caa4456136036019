#pragma once

#include <QByteArrayView>

namespace database {

/// Order of names, kana and addresses: signs, digits, letters, kana by the syllabary, kanji in the order of code
/// page 932, then everything else by its code. What TextFolding makes equal is equal. Voicing and small kana count
/// where the texts are alike otherwise, and "ー" stands as the vowel that it lengthens.
/// Both texts in UTF-8. Below, at or above 0 as the first stands before, with or behind the second.
int CompareTexts(QByteArrayView one, QByteArrayView other);

/// Where one folded character stands: texts are ordered by the primary weights of their characters, the shorter of two
/// alike first, and where all those are alike by the shades.
struct OrderWeight {
    quint32 primary = 0;  ///< class in the top byte (1 to 6), place inside the class below
    quint8 shade = 0;     ///< 0 to 4
    quint8 vowel = 0;     ///< of a kana: 1 to 5, and 0 for ん; "ー" behind it stands as the kana of that place
};
OrderWeight OrderWeightOf(char32_t folded);

/// Shade of a "ー" that stands as a vowel.
inline constexpr quint8 kLengthenedShade = 1;

}  // namespace database
