#pragma once

#include <QByteArrayView>
#include <QStringView>
#include <array>

namespace database {

/// What the suite's desktop engine does not tell apart in a text: letter case, full and half width of letters,
/// digits and signs, hiragana, katakana and half-width katakana. LIKE and ORDER BY share this one table.
/// The folded form of a character of the basic plane is its half-width small letter or its hiragana.
const std::array<char16_t, 65536>& FoldingTable();

/// Kana with the voicing mark or the semi-voicing mark that follows it as a character of its own, else 0. Both are
/// taken in folded form.
char32_t Voiced(char32_t kana, char32_t mark);

/// The kana that a mark can voice, in folded form.
QStringView VoiceableKana(char32_t mark);

inline constexpr char32_t kVoicingMark = 0x309B;
inline constexpr char32_t kSemiVoicingMark = 0x309C;

/// Reads UTF-8 as folded characters; ｶﾞ is one character, が. Bytes that are no UTF-8 count as U+FFFD each.
class FoldedReader {
  public:
    explicit FoldedReader(QByteArrayView utf8)
        : at_(reinterpret_cast<const unsigned char*>(utf8.data())), end_(at_ + utf8.size()) {
        ahead_ = Decode();
    }

    bool AtEnd() const { return ahead_ == kNone; }
    /// The next character; not at the end.
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
