#include "database/collation/PostgresFunctions.h"

#include "database/collation/TextFolding.h"
#include "database/sql/Quoting.h"
#include "platform/Utf8Text.h"

namespace database {
namespace {

// Ranges of the basic plane whose characters have an individual weight; all others sort after them by code point.
struct Range {
    int first, last;
};
constexpr Range kWeighted[] = {{0x0000, 0x33FF}, {0x4E00, 0x9FFF}, {0xE000, 0xFFFF}};
constexpr Range kKana = {0x3041, 0x30FF};
constexpr int kOthersClass = 6;
constexpr int kLengthening = 0x30FC;

// translate() searches its whole table for each character that is not in it. Half-width kana and the ideographic space,
// which occur in nearly every name and reading, therefore get small tables.
enum class Kind { HalfWidth, Wide, Rare };

Kind KindOf(int unit) {
    const bool halfWidth = unit == 0x3000 || unit == 0x3099 || unit == 0x309A || (unit >= 0xFF61 && unit <= 0xFF9F);
    if (halfWidth) return Kind::HalfWidth;
    return unit >= 0xFF00 || (unit >= 0x30A1 && unit <= 0x30FE) ? Kind::Wide : Kind::Rare;
}

// ASCII is folded separately before.
bool Translates(int unit, Kind kind) {
    return unit >= 0x80 && unit < 0x10000 && KindOf(unit) == kind && FoldingTable()[static_cast<size_t>(unit)] != unit;
}

QString Translation(Kind kind) {
    QString from, to, ranges;
    int begin = -1;
    for (int unit = 0x80; unit <= 0x10000; ++unit) {
        const bool translates = Translates(unit, kind);
        if (translates) {
            from += QChar(unit);
            to += QChar(FoldingTable()[static_cast<size_t>(unit)]);
            if (begin < 0) begin = unit;
        } else if (begin >= 0) {
            ranges += QChar(begin);
            if (unit - 1 > begin) ranges += u'-' + QString(QChar(unit - 1));
            begin = -1;
        }
    }
    return QStringLiteral(" IF folded ~ %1 THEN folded := translate(folded, %2, %3); END IF;")
        .arg(TextLiteral(QString(u'[' + ranges + u']')), TextLiteral(from), TextLiteral(to));
}

// Composes kana and marks. normalize() is several times faster than one replace() per pair, but composes more than
// these, so it is used only if the text has nothing else to compose.
QString Joining() {
    const QString marks = platform::TextOfCharacter(kVoicingMark) + platform::TextOfCharacter(kSemiVoicingMark);
    const QString combining = QStringLiteral("\u3099\u309A");
    QString pairs = QStringLiteral("folded");
    for (const char32_t mark : {kVoicingMark, kSemiVoicingMark})
        for (const QChar kana : VoiceableKana(mark))
            pairs = QStringLiteral("replace(%1, '%2%3', '%4')")
                        .arg(pairs, QString(kana), platform::TextOfCharacter(mark),
                             platform::TextOfCharacter(Voiced(kana.unicode(), mark)));
    return QStringLiteral(
               " IF folded ~ '[%1]' THEN IF folded ~ '^[ -~\u3000-\u30FF\u4E00-\u9FFF]*$'"
               " THEN folded := translate(normalize(translate(folded, '%1', E'%2'), NFC), E'%2', '%1');"
               " ELSE folded := %3; END IF; END IF;")
        .arg(marks, combining, pairs);
}

QByteArray Packed(const OrderWeight& weight) {
    const quint32 packed = ((weight.primary >> 24) << 21) | (weight.primary & 0x1FFFFF);
    const char bytes[] = {static_cast<char>(packed >> 16), static_cast<char>(packed >> 8), static_cast<char>(packed)};
    return {bytes, 3};
}

QString HexLiteral(const QByteArray& bytes) {
    return QStringLiteral("'\\x%1'::bytea").arg(QString::fromLatin1(bytes.toHex()));
}

QString WeightLiteral() {
    QByteArray bytes;
    for (const Range& range : kWeighted)
        for (int unit = range.first; unit <= range.last; ++unit)
            bytes += Packed(OrderWeightOf(static_cast<char32_t>(unit)));
    return HexLiteral(bytes);
}

// SQL expression for the index of a character in the weight literal, in characters; -1 if it has none.
QString PlaceExpression() {
    QString cases;
    int before = 0;
    for (const Range& range : kWeighted) {
        cases += QStringLiteral(" WHEN code BETWEEN %1 AND %2 THEN code - %3")
                     .arg(range.first)
                     .arg(range.last)
                     .arg(range.first - before);
        before += range.last - range.first + 1;
    }
    return QStringLiteral("CASE%1 ELSE -1 END").arg(cases);
}

// One byte per kana: the vowel in the low bits, the shade above.
QString KanaLiteral() {
    QByteArray bytes;
    for (int unit = kKana.first; unit <= kKana.last; ++unit) {
        const OrderWeight weight = OrderWeightOf(static_cast<char32_t>(unit));
        bytes += static_cast<char>(weight.shade * 8 + weight.vowel);
    }
    return HexLiteral(bytes);
}

// Declaration and statements of a variable `folded`. Both functions have them: while a dump is restored, the search
// path is empty, and one function would not find the other when the index is built.
QString FoldedVariable() { return QStringLiteral(" folded text := lower(stored COLLATE \"C\");"); }

QString FoldingSteps() {
    return Translation(Kind::HalfWidth) + Translation(Kind::Wide) + Translation(Kind::Rare) + Joining();
}

QString FoldingStatement() {
    return QStringLiteral(
               "CREATE OR REPLACE FUNCTION %1(stored text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE"
               " COST 100 AS $suite$ DECLARE")
               .arg(PostgresFoldingFunction()) +
           FoldedVariable() + QStringLiteral(" BEGIN") + FoldingSteps() + QStringLiteral(" RETURN folded; END $suite$");
}

QString OrderStatement() {
    const OrderWeight vowel = OrderWeightOf(u'あ');
    const QString vowels = HexLiteral(Packed(vowel));
    return QStringLiteral(
               "CREATE OR REPLACE FUNCTION %1(stored text) RETURNS bytea LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL "
               "SAFE"
               " COST 1000 AS $suite$ DECLARE sign text; code integer; place integer; kana integer; vowel integer := 0;"
               " weights bytea := ''; shades bytea := '';")
               .arg(PostgresOrderFunction()) +
           FoldedVariable() + QStringLiteral(" BEGIN") + FoldingSteps() +
           QStringLiteral(
               " FOREACH sign IN ARRAY string_to_array(folded, NULL) LOOP"
               " code := ascii(sign);"
               " IF code = %1 AND vowel > 0 THEN"
               " weights := weights || set_byte(%2, 2, vowel); shades := shades || '\\x0%3'::bytea; CONTINUE; END IF;"
               " kana := CASE WHEN code BETWEEN %4 AND %5 THEN get_byte(%6, code - %4) ELSE 0 END;"
               " vowel := kana & 7; shades := shades || set_byte('\\x00'::bytea, 0, kana >> 3);"
               " place := %7;")
               .arg(kLengthening)
               .arg(vowels)
               .arg(kLengthenedShade)
               .arg(kKana.first)
               .arg(kKana.last)
               .arg(KanaLiteral(), PlaceExpression()) +
           QStringLiteral(
               " weights := weights || CASE WHEN place < 0 THEN substring(int4send((%1 << 21) | code) FROM 2)"
               " ELSE substring(%2 FROM place * 3 + 1 FOR 3) END;"
               " END LOOP; RETURN weights || '\\x00'::bytea || shades; END $suite$")
               .arg(kOthersClass)
               .arg(WeightLiteral());
}

}  // namespace

QString PostgresFoldingFunction() { return QStringLiteral("suite_fold"); }

QString PostgresOrderFunction() { return QStringLiteral("suite_order"); }

QStringList PostgresTextFunctions() { return {FoldingStatement(), OrderStatement()}; }

}  // namespace database
