// Part of TextFolding.h: CompareTexts and OrderWeightOf, the collation of names, kana and addresses.

#include "database/collation/TextFolding.h"

#include <iconv.h>

#include <QChar>
#include <array>
#include <memory>
#include <vector>

namespace database {
namespace {

enum Class : quint32 { kSigns = 1, kDigits, kLetters, kKana, kKanji, kOthers };
enum Shade : quint8 { kPlain, kLengthened = kLengthenedShade, kSmall, kVoicedShade, kSemiVoicedShade };

using Weight = OrderWeight;
using Table = std::array<Weight, 65536>;

constexpr quint32 Primary(Class c, quint32 place) { return (static_cast<quint32>(c) << 24) | place; }

struct KanaRow {
    const char16_t* kana;   // in syllabary order
    const char16_t* small;  // small form of the kana at this index, U+3000 if there is none
    const char16_t* voiced;
    const char16_t* semiVoiced;
    const char* vowels;
};

constexpr KanaRow kKanaRows[] = {
    {u"あいうえお", u"ぁぃぅぇぉ", u"　　ゔ　　", u"　　　　　", "12345"},
    {u"かきくけこ", u"ゕ　　ゖ　", u"がぎぐげご", u"　　　　　", "12345"},
    {u"さしすせそ", u"　　　　　", u"ざじずぜぞ", u"　　　　　", "12345"},
    {u"たちつてと", u"　　っ　　", u"だぢづでど", u"　　　　　", "12345"},
    {u"なにぬねの", u"　　　　　", u"　　　　　", u"　　　　　", "12345"},
    {u"はひふへほ", u"　　　　　", u"ばびぶべぼ", u"ぱぴぷぺぽ", "12345"},
    {u"まみむめも", u"　　　　　", u"　　　　　", u"　　　　　", "12345"},
    {u"やゆよ", u"ゃゅょ", u"　　　", u"　　　", "135"},
    {u"らりるれろ", u"　　　　　", u"　　　　　", u"　　　　　", "12345"},
    {u"わゐゑをん", u"ゎ　　　　", u"ヷヸヹヺ　", u"　　　　　", "12450"},
};

void PutKana(Table& table, char16_t kana, quint32 place, Shade shade, quint8 vowel) {
    if (kana != u'　') table[kana] = {Primary(kKana, place), shade, vowel};
}

void PutKanaRows(Table& table) {
    quint32 place = 0;
    for (const KanaRow& row : kKanaRows) {
        for (size_t i = 0; row.kana[i] != 0; ++i) {
            const auto vowel = static_cast<quint8>(row.vowels[i] - '0');
            ++place;
            PutKana(table, row.kana[i], place, kPlain, vowel);
            PutKana(table, row.small[i], place, kSmall, vowel);
            PutKana(table, row.voiced[i], place, kVoicedShade, vowel);
            PutKana(table, row.semiVoiced[i], place, kSemiVoicedShade, vowel);
        }
    }
}

class CodePageDecoder {
  public:
    CodePageDecoder() : converter_(iconv_open("UTF-16LE", "CP932")) {}
    ~CodePageDecoder() {
        if (Works()) iconv_close(converter_);
    }
    CodePageDecoder(const CodePageDecoder&) = delete;
    CodePageDecoder& operator=(const CodePageDecoder&) = delete;
    // iconv_open returns -1 on failure, not null.
    bool Works() const { return converter_ != reinterpret_cast<iconv_t>(-1); }  // NOLINT(performance-no-int-to-ptr)

    // 0 if the code has no character.
    char16_t Decode(int code) {
        char bytes[2] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
        unsigned char out[4] = {};
        char* in = bytes;
        size_t inLeft = sizeof bytes;
        char* target = reinterpret_cast<char*>(out);
        size_t outLeft = sizeof out;
        const bool decoded = iconv(converter_, &in, &inLeft, &target, &outLeft) != static_cast<size_t>(-1);
        iconv(converter_, nullptr, nullptr, nullptr, nullptr);
        return decoded && outLeft == 2 ? static_cast<char16_t>(out[0] | (out[1] << 8)) : 0;
    }

  private:
    iconv_t converter_;
};

// Many vendor extension characters have two codes in the code page. The one it encodes to counts: the lower one, except
// that rows ED and EE are only decoded.
std::vector<quint32> CodePageRanks() {
    std::vector<quint32> ranks(65536);
    CodePageDecoder decoder;
    for (int code = 0x8140; decoder.Works() && code <= 0xFCFC; ++code) {
        if (code >= 0xA000 && code < 0xE000) code = 0xE040;
        quint32& rank = ranks[decoder.Decode(code)];
        if (rank == 0 || (rank >= 0xED00 && rank < 0xEF00)) rank = static_cast<quint32>(code);
    }
    return ranks;
}

// User-defined characters of the code page sort as kanji; Unicode has them in the private use area.
bool IsKanji(QChar unit) { return unit.script() == QChar::Script_Han || unit.category() == QChar::Other_PrivateUse; }

Weight WeightOf(char16_t folded, quint32 rank) {
    const QChar unit(folded);
    const bool known = rank != 0 || folded < 0x250;
    const quint32 place = folded < 0x80 ? folded : 0x100 + (rank != 0 ? rank : 0x10000U + folded);
    if (IsKanji(unit) && rank != 0) return {Primary(kKanji, rank), kPlain, 0};
    if (IsKanji(unit) || !known) return {Primary(kOthers, folded), kPlain, 0};
    if (unit.isDigit()) return {Primary(kDigits, place), kPlain, 0};
    return {Primary(unit.isLetter() ? kLetters : kSigns, place), kPlain, 0};
}

std::unique_ptr<Table> MakeTable() {
    auto table = std::make_unique<Table>();
    const std::vector<quint32> ranks = CodePageRanks();
    for (size_t unit = 0; unit < table->size(); ++unit)
        (*table)[unit] = WeightOf(static_cast<char16_t>(unit), ranks[unit]);
    PutKanaRows(*table);
    return table;
}

const Table& WeightTable() {
    static const std::unique_ptr<Table> table = MakeTable();
    return *table;
}

class WeightReader {
  public:
    explicit WeightReader(QByteArrayView utf8) : reader_(utf8) {}
    bool AtEnd() const { return reader_.AtEnd(); }
    Weight Next() {
        const char32_t unit = reader_.Next();
        if (unit > 0xFFFF) {
            vowel_ = 0;
            return OrderWeightOf(unit);
        }
        Weight weight = table_[unit];
        if (unit == u'ー' && vowel_ != 0) weight = {Primary(kKana, vowel_), kLengthened, vowel_};
        vowel_ = weight.vowel;
        return weight;
    }

  private:
    const Table& table_ = WeightTable();
    FoldedReader reader_;
    quint8 vowel_ = 0;  // of the previous character
};

}  // namespace

OrderWeight OrderWeightOf(char32_t folded) {
    if (folded > 0xFFFF) return {Primary(kOthers, static_cast<quint32>(folded)), kPlain, 0};
    return WeightTable()[folded];
}

int CompareTexts(QByteArrayView one, QByteArrayView other) {
    WeightReader first(one);
    WeightReader second(other);
    int shades = 0;
    while (!first.AtEnd() && !second.AtEnd()) {
        const Weight a = first.Next();
        const Weight b = second.Next();
        if (a.primary != b.primary) return a.primary < b.primary ? -1 : 1;
        if (shades == 0) shades = static_cast<int>(a.shade) - static_cast<int>(b.shade);
    }
    if (first.AtEnd() != second.AtEnd()) return first.AtEnd() ? -1 : 1;
    return shades;
}

}  // namespace database
