#pragma once

#include <QByteArrayView>

namespace platform {

/// Order of names, kana and addresses: signs, digits, letters, kana by the syllabary, kanji in the order of code
/// page 932, then everything else by its code. What TextFolding makes equal is equal. Voicing and small kana count
/// where the texts are alike otherwise, and "ー" stands as the vowel that it lengthens.
/// Both texts in UTF-8. Below, at or above 0 as the first stands before, with or behind the second.
int CompareTexts(QByteArrayView one, QByteArrayView other);

}  // namespace platform
