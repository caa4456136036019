#pragma once

#include <QFlags>
#include <QString>

/// How an input item uses the input method. The numbers are those of the design.
enum class ImeMode { None = 0, On = 1, Off = 2, Disabled = 3, Hiragana = 4, HalfKatakana = 6 };

/// What an item lets through while typing and pasting.
enum class CharacterClass {
    All = 0x001,  ///< no limit
    DblByte = 0x002,
    Kana = 0x004,  ///< half-width katakana
    Lower = 0x008,
    Num = 0x010,
    NumExt = 0x020,  ///< signs of numbers: + - . ,
    Space = 0x040,
    Symbol = 0x080,
    Upper = 0x100,
};
Q_DECLARE_FLAGS(CharacterClasses, CharacterClass)
Q_DECLARE_OPERATORS_FOR_FLAGS(CharacterClasses)

/// Whether the classes let this code unit through. Control characters and line ends are never let through.
bool LetsThrough(CharacterClasses classes, QChar sign);
/// The text without what the classes don't let through.
QString Admitted(const QString& text, CharacterClasses classes);
/// The first `length` code units, one less where that would leave half a surrogate pair.
QString CutToRoom(const QString& text, int length);

/// What is fixed about an input item when its form is designed.
struct ItemDesign {
    int maxLength = 0;  ///< characters that can be typed, 0 for no limit; what the program writes is never cut
    ImeMode imeMode = ImeMode::None;
    CharacterClasses classes = CharacterClass::All;
    int minValue = 0;
    int maxValue = 0;
    QString text;  ///< shown until the program writes
};
