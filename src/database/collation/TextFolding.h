#pragma once

#include <QByteArrayView>
#include <QStringView>
#include <array>

namespace database {

/// Folds what the suite's desktop engine does not distinguish: letter case, full and half width of letters, digits and
/// punctuation, and hiragana, katakana and half-width katakana. Used by LIKE and ORDER BY. Indexed by character of the
/// basic plane; the folded form is the half-width lower-case letter or the hiragana.
const std::array<char16_t, 65536>& FoldingTable();

/// Composes a kana and the voicing or semi-voicing mark after it, both folded; 0 if they do not compose.
char32_t Voiced(char32_t kana, char32_t mark);

/// The folded kana that compose with the mark.
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

}  // namespace database
