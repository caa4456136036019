#pragma once

#include <QList>
#include <QString>

// Recognition of Latin writing in Japanese text, half-width or full-width.

namespace report {

inline constexpr QStringView kKanjiNumerals = u"〇一二三四五六七八九";
inline constexpr QStringView kDashes = u"-－−‐–—―─";

enum class Script { Letter, Digit, Sign, Blank, Other };

/// Kind of a character; combining marks are letters, dashes are signs, kanji numerals are Other.
Script ScriptOf(QChar c);
/// The half-width form of a full-width character or dash; any other character unchanged.
QChar Narrow(QChar c);
/// True for digits and kanji numerals.
bool IsNumeral(QChar c);
/// True for letters and numerals.
bool IsWordPart(QChar c);
/// True for Latin letters and the combining marks on them.
bool IsLatinLetter(QChar c);
/// True for characters of Western writing that are not full-width.
bool IsNarrow(QChar c);
/// True if the text has no other characters than half-width ones of Latin writing. An empty text is Latin.
bool IsLatinText(const QString& text);

/// Latin words separated by blanks and signs, at least one of them with two letters; positions in UTF-16 code units.
struct LatinPhrase {
    qsizetype begin = 0, end = 0;
};

/// The Latin phrases of a text, in order. Numbers that belong to the Japanese text next to them are not part of one:
/// "梅田1-2 ABC".
QList<LatinPhrase> LatinPhrasesOf(const QString& text);

}  // namespace report
