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

/// Both directions for the whole basic plane. A form of one byte lies below 0x100, one of two bytes above.
struct Tables {
    std::vector<quint16> forms = std::vector<quint16>(kCodes, kNoForm);
    std::vector<char16_t> characters = std::vector<char16_t>(kCodes, kNoCharacter);
};

// The converter encodes these nine although Windows has no form for them; they never come back as themselves.
constexpr std::array<char16_t, 9> kOneWayOnly = {0x00A2, 0x00A3, 0x00A5, 0x00AC, 0x2014,
                                                 0x2016, 0x203E, 0x2212, 0x301C};

bool IsSurrogate(std::size_t unit) { return unit >= 0xD800 && unit < 0xE000; }

quint16 FormFromConverter(iconv_t converter, char16_t unit) {
    std::array<char, 2> source = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    std::array<unsigned char, 4> target{};
    char* from = source.data();
    char* to = reinterpret_cast<char*>(target.data());
    std::size_t left = source.size();
    std::size_t room = target.size();
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(converter, &from, &left, &to, &room) == static_cast<std::size_t>(-1)) return kNoForm;
    const std::size_t written = target.size() - room;
    if (written == 1) return target[0];
    return written == 2 ? static_cast<quint16>(target[0] << 8 | target[1]) : kNoForm;
}

Tables MakeTables() {
    Tables tables;
    const iconv_t converter = iconv_open("CP932", "UTF-16LE");
    for (std::size_t unit = 0; unit < kCodes; ++unit) {
        const auto character = static_cast<char16_t>(unit);
        if (IsSurrogate(unit) || std::ranges::count(kOneWayOnly, character) > 0) continue;
        const quint16 form = FormFromConverter(converter, character);
        if (form == kNoForm) continue;
        tables.forms[unit] = form;
        tables.characters[form] = character;
    }
    iconv_close(converter);
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
    const std::vector<quint16>& forms = TheTables().forms;
    Encoded932 result;
    result.bytes.reserve(text.size() * 2);
    for (const QChar unit : text) {
        const quint16 form = forms[unit.unicode()];
        if (form == kNoForm) {
            result.bytes.append('?');
            ++result.lost;
            continue;
        }
        if (form >= 0x100) result.bytes.append(static_cast<char>(form >> 8));
        result.bytes.append(static_cast<char>(form & 0xFF));
    }
    return result;
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
