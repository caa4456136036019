#pragma once

#include <QByteArrayView>

namespace database {

/// Collation of names, kana and addresses: punctuation, digits, letters, kana in syllabary order, kanji in the order of
/// code page 932, then all others by code point. Texts that fold alike (TextFolding) are equal. Voicing and small kana
/// are compared only if the texts are otherwise equal; "ー" sorts as the vowel that it lengthens.
/// Both texts are UTF-8. Returns < 0, 0 or > 0, as memcmp.
int CompareTexts(QByteArrayView one, QByteArrayView other);

/// Sort weight of a folded character. Texts are compared by the primary weights of their characters, a prefix before
/// the longer text; if all are equal, by the shades.
struct OrderWeight {
    quint32 primary = 0;  ///< class in the top byte (1 to 6), position in the class below
    quint8 shade = 0;     ///< 0 to 4
    quint8 vowel = 0;     ///< of a kana: 1 to 5, 0 for ん; a "ー" after it sorts as this vowel
};
OrderWeight OrderWeightOf(char32_t folded);

/// Shade of a "ー" that sorts as a vowel.
inline constexpr quint8 kLengthenedShade = 1;

}  // namespace database
