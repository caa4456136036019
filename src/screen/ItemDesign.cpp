#include "screen/ItemDesign.h"

#include <algorithm>

bool LetsThrough(CharacterClasses classes, QChar sign) {
    if (sign.category() == QChar::Other_Control) return false;
    if (classes & CharacterClass::All) return true;
    const char16_t code = sign.unicode();
    if (code == u' ') return classes & CharacterClass::Space;
    if (code >= u'0' && code <= u'9') return classes & CharacterClass::Num;
    if (code >= u'a' && code <= u'z') return classes & CharacterClass::Lower;
    if (code >= u'A' && code <= u'Z') return classes & CharacterClass::Upper;
    const bool ofNumbers = code == u'+' || code == u'-' || code == u'.' || code == u',';
    if (ofNumbers) return (classes & CharacterClass::NumExt) || (classes & CharacterClass::Symbol);
    if (code > u' ' && code <= u'~') return classes & CharacterClass::Symbol;
    if (code >= u'\uFF61' && code <= u'\uFF9F') return classes & CharacterClass::Kana;
    return classes & CharacterClass::DblByte;
}

QString Admitted(const QString& text, CharacterClasses classes) {
    QString admitted;
    admitted.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(admitted),
                 [classes](QChar sign) { return LetsThrough(classes, sign); });
    return admitted;
}

QString CutToRoom(const QString& text, int length) {
    if (text.size() <= length) return text;
    const int room = std::max(length, 0);
    const bool splitsPair = room > 0 && text.at(room - 1).isHighSurrogate();
    return text.left(splitsPair ? room - 1 : room);
}
