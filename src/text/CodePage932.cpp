#include "text/CodePage932.h"

#include <iconv.h>
#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace {

constexpr std::size_t kCodes = 0x10000;
constexpr char16_t kNoCharacter = 0xFFFD;
constexpr quint16 kNoForm = 0xFFFF;

/// Both directions for the whole Basic Multilingual Plane. Forms below 0x100 are one byte, others two.
struct Tables {
    std::vector<quint16> forms = std::vector<quint16>(kCodes, kNoForm);
    std::vector<char16_t> characters = std::vector<char16_t>(kCodes, kNoCharacter);
};

// iconv encodes these nine characters, which Windows cannot encode and which do not round-trip.
constexpr std::array<char16_t, 9> kOneWayOnly = {0x00A2, 0x00A3, 0x00A5, 0x00AC, 0x2014,
                                                 0x2016, 0x203E, 0x2212, 0x301C};

bool IsSurrogate(std::size_t unit) { return unit >= 0xD800 && unit < 0xE000; }

/// RAII wrapper of an iconv handle.
class Converter {
  public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {
        // Continuing would replace every character in the user's files by "?".
        if (handle_ == reinterpret_cast<iconv_t>(-1)) qFatal("The C library lacks its converter for code page 932.");
    }
    ~Converter() { iconv_close(handle_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    /// Number of bytes written for one character; 0 if it cannot be converted.
    std::size_t Convert(std::array<char, 2> source, std::size_t length, std::array<char, 4>& target) const {
        char* from = source.data();
        char* to = target.data();
        std::size_t left = length;
        std::size_t space = target.size();
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        const bool failed = iconv(handle_, &from, &left, &to, &space) == static_cast<std::size_t>(-1);
        return failed ? 0 : target.size() - space;
    }

  private:
    iconv_t handle_;
};

quint16 Join(char high, char low) {
    return static_cast<quint16>(static_cast<quint8>(high) << 8 | static_cast<quint8>(low));
}

quint16 FormOf(const Converter& converter, char16_t unit) {
    std::array<char, 4> bytes{};
    const std::array<char, 2> source = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    switch (converter.Convert(source, 2, bytes)) {
        case 1:
            return static_cast<quint8>(bytes[0]);
        case 2:
            return Join(bytes[0], bytes[1]);
        default:
            return kNoForm;
    }
}

/// Decoded separately, since some characters have two codes, of which encoding uses one.
char16_t CharacterOf(const Converter& converter, quint16 form) {
    std::array<char, 4> bytes{};
    const auto high = static_cast<char>(form >> 8);
    const auto low = static_cast<char>(form & 0xFF);
    const bool single = form < 0x100;
    const std::size_t written =
        converter.Convert(single ? std::array{low, '\0'} : std::array{high, low}, single ? 1 : 2, bytes);
    return written == 2 ? Join(bytes[1], bytes[0]) : kNoCharacter;
}

Tables MakeTables() {
    Tables tables;
    const Converter encoder("CP932", "UTF-16LE");
    const Converter decoder("UTF-16LE", "CP932");
    for (std::size_t code = 0; code < kCodes; ++code) {
        const auto unit = static_cast<char16_t>(code);
        const bool oneWay = std::ranges::count(kOneWayOnly, unit) > 0;
        if (!IsSurrogate(code) && !oneWay) tables.forms[code] = FormOf(encoder, unit);
        tables.characters[code] = CharacterOf(decoder, static_cast<quint16>(code));
    }
    return tables;
}

const Tables& TheTables() {
    static const Tables tables = MakeTables();
    return tables;
}

bool IsLeadByte(quint8 byte) { return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC); }

}  // namespace

int UnitLength932(char16_t unit) {
    const quint16 form = TheTables().forms[unit];
    return form == kNoForm || form < 0x100 ? 1 : 2;
}

int ByteLength932(QStringView text) {
    int bytes = 0;
    for (const QChar unit : text) bytes += UnitLength932(unit.unicode());
    return bytes;
}

Encoded932 Encode932(QStringView text) {
    Encoded932 result;
    result.lost = AppendEncoded932(text, result.bytes);
    return result;
}

int AppendEncoded932(QStringView text, QByteArray& bytes) {
    const std::vector<quint16>& forms = TheTables().forms;
    const qsizetype before = bytes.size();
    bytes.resize(before + text.size() * 2);
    char* const begin = bytes.data() + before;
    char* end = begin;
    int lost = 0;
    for (const QChar unit : text) {
        const quint16 form = forms[unit.unicode()];
        lost += form == kNoForm ? 1 : 0;
        if (form >= 0x100 && form != kNoForm) *end++ = static_cast<char>(form >> 8);
        *end++ = form == kNoForm ? '?' : static_cast<char>(form & 0xFF);
    }
    bytes.resize(before + (end - begin));
    return lost;
}

QString Decode932(QByteArrayView bytes) {
    const std::vector<char16_t>& characters = TheTables().characters;
    QString text;
    text.reserve(bytes.size());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<quint8>(bytes[i]);
        char16_t character = characters[byte];
        if (IsLeadByte(byte) && i + 1 < bytes.size()) {
            character = characters[static_cast<std::size_t>(byte << 8 | static_cast<quint8>(bytes[i + 1]))];
            if (character != kNoCharacter) ++i;
        }
        text.append(QChar(character));
    }
    return text;
}
