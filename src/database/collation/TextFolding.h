#pragma once

#include <QByteArrayView>
#include <QStringView>
#include <array>

namespace database {

// Comparison of text in LIKE and ORDER BY. "Folding" normalises: it replaces a character by the representative of all
// characters that are considered equal: letters in either case and width, digits and punctuation in either width, and
// hiragana, katakana and half-width katakana.

/// The folded form of each character of the basic plane: the half-width, lower-case letter or the hiragana. Characters
/// beyond it are not folded.
const std::array<char16_t, 65536>& FoldingTable();

/// Composes a folded kana and the mark after it (kVoicingMark or kSemiVoicingMark); 0 if they do not compose.
char32_t Voiced(char32_t kana, char32_t mark);

/// The folded kana that compose with the mark, in code order.
QStringView VoiceableKana(char32_t mark);

inline constexpr char32_t kVoicingMark = 0x309B;
inline constexpr char32_t kSemiVoicingMark = 0x309C;

/// Decodes UTF-8 into folded characters; ｶﾞ is one character, が. Each invalid byte yields U+FFFD.
class FoldedReader {
  public:
    explicit FoldedReader(QByteArrayView utf8)
        : at_(reinterpret_cast<const unsigned char*>(utf8.data())), end_(at_ + utf8.size()) {
        ahead_ = Decode();
    }

    bool AtEnd() const { return ahead_ == kNone; }
    /// The next character; must not be called at the end.
    char32_t Next() {
        const char32_t current = ahead_;
        ahead_ = Decode();
        if (ahead_ != kVoicingMark && ahead_ != kSemiVoicingMark) return current;
        const char32_t voiced = Voiced(current, ahead_);
        if (voiced == 0) return current;
        ahead_ = Decode();
        return voiced;
    }

  private:
    static constexpr char32_t kNone = 0xFFFFFFFF;

    char32_t Decode() {
        if (at_ == end_) return kNone;
        if (*at_ < 0x80) return table_[*at_++];
        return DecodeLong();
    }
    char32_t DecodeLong();

    const std::array<char16_t, 65536>& table_ = FoldingTable();
    const unsigned char* at_;
    const unsigned char* end_;
    char32_t ahead_;
};

/// Collation of names, kana and addresses: punctuation, digits, letters, kana in syllabary order, kanji in the order of
/// code page 932, then all others by code point. Texts that fold alike are equal. Voicing and small kana are compared
/// only if the texts are otherwise equal; "ー" sorts as the vowel that it lengthens. Both texts are UTF-8. Returns < 0,
/// 0 or > 0, as memcmp.
int CompareTexts(QByteArrayView one, QByteArrayView other);

/// Sort weight of a folded character. CompareTexts compares the primary weights of all characters, a prefix before the
/// longer text; if all are equal, the shades.
struct OrderWeight {
    quint32 primary = 0;  ///< class in the top byte (1 to 6, as listed at CompareTexts), position in the class below
    quint8 shade = 0;     ///< 0 plain, 1 "ー" as a vowel, 2 small, 3 voiced, 4 semi-voiced
    quint8 vowel = 0;     ///< of a kana: 1 to 5, 0 for ん; a "ー" after it sorts as this vowel
};
OrderWeight OrderWeightOf(char32_t folded);

/// Shade of a "ー" that sorts as a vowel. OrderWeightOf never returns it, since that depends on the character before.
inline constexpr quint8 kLengthenedShade = 1;

}  // namespace database
