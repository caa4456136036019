#include "database/collation/TextFolding.h"

#include <QChar>
#include <memory>

namespace database {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Folded forms of U+FF61 to U+FF9F (half-width katakana), in code order.
constexpr char16_t kHalfWidth[] =
    u"。「」、・をぁぃぅぇぉゃゅょっーあいうえおかきくけこさしすせそたちつてとなにぬねのはひふへほまみむめもやゆよらり"
    u"るれろわん゛゜";
// Folded forms of U+FFE0 to U+FFE6: full-width symbols whose half-width form is not ASCII.
constexpr char16_t kWideSigns[] = u"¢£¬¯¦¥₩";

// Kana with a voiced form, and that form at the same index; は to ほ also have a semi-voiced form.
constexpr char16_t kVoiceless[] = u"うかきくけこさしすせそたちつてとはひふへほゝ";
constexpr char16_t kVoicedForms[] = u"ゔがぎぐげござじずぜぞだぢづでどばびぶべぼゞ";
constexpr char16_t kHaRow[] = u"はひふへほ";
constexpr char16_t kPaRow[] = u"ぱぴぷぺぽ";

using Table = std::array<char16_t, 65536>;

std::unique_ptr<Table> MakeTable() {
    auto table = std::make_unique<Table>();
    Table& folded = *table;
    for (size_t unit = 0; unit < folded.size(); ++unit) {
        const QChar lower = QChar(static_cast<char16_t>(unit)).toLower();
        folded[unit] = lower.unicode();
    }
    for (size_t unit = 0xFF01; unit <= 0xFF5E; ++unit) folded[unit] = folded[unit - 0xFF01 + 0x21];
    for (size_t i = 0; i < std::size(kHalfWidth) - 1; ++i) folded[0xFF61 + i] = kHalfWidth[i];
    for (size_t i = 0; i < std::size(kWideSigns) - 1; ++i) folded[0xFFE0 + i] = kWideSigns[i];
    for (size_t unit = 0x30A1; unit <= 0x30F6; ++unit) folded[unit] = static_cast<char16_t>(unit - 0x60);
    folded[0x30FD] = 0x309D;
    folded[0x30FE] = 0x309E;
    folded[0x3000] = u' ';
    // Combining marks occur in text from other systems.
    folded[0x3099] = static_cast<char16_t>(kVoicingMark);
    folded[0x309A] = static_cast<char16_t>(kSemiVoicingMark);
    return table;
}

template <size_t N>
char32_t Pair(char32_t unit, const char16_t (&from)[N], const char16_t (&to)[N]) {
    for (size_t i = 0; i + 1 < N; ++i)
        if (from[i] == unit) return to[i];
    return 0;
}

int FollowingBytes(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF) return 1;
    if (lead >= 0xE0 && lead <= 0xEF) return 2;
    return lead >= 0xF0 && lead <= 0xF4 ? 3 : 0;
}

}  // namespace

const std::array<char16_t, 65536>& FoldingTable() {
    static const std::unique_ptr<Table> table = MakeTable();
    return *table;
}

char32_t Voiced(char32_t kana, char32_t mark) {
    return mark == kVoicingMark ? Pair(kana, kVoiceless, kVoicedForms) : Pair(kana, kHaRow, kPaRow);
}

QStringView VoiceableKana(char32_t mark) {
    return mark == kVoicingMark ? QStringView(kVoiceless) : QStringView(kHaRow);
}

char32_t FoldedReader::DecodeLong() {
    const unsigned char lead = *at_++;
    const int following = FollowingBytes(lead);
    if (following == 0 || end_ - at_ < following) return kReplacement;
    auto code = static_cast<char32_t>(lead & (0x3F >> following));
    for (int i = 0; i < following; ++i) {
        if ((at_[i] & 0xC0) != 0x80) return kReplacement;
        code = (code << 6) | (at_[i] & 0x3FU);
    }
    at_ += following;
    return code < table_.size() ? table_[code] : code;
}

}  // namespace database
