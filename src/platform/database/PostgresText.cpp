#include "platform/database/PostgresText.h"

#include "platform/database/TextFolding.h"
#include "platform/database/TextOrder.h"

namespace platform {
namespace {

// Ranges of the basic plane whose characters have a weight of their own; all others stand behind them by their codes.
struct Range {
    int first, last;
};
constexpr Range kWeighted[] = {{0x0000, 0x33FF}, {0x4E00, 0x9FFF}, {0xE000, 0xFFFF}};
constexpr Range kKana = {0x3041, 0x30FF};
constexpr int kOthersClass = 6;
constexpr int kLengthening = 0x30FC;

QString Literal(const QString& text) { return u'\'' + QString(text).replace(u'\'', QStringLiteral("''")) + u'\''; }

// Signs of Japanese texts, which are translated always; what is left is rare, and a longer table would cost time with
// each character of each text.
bool IsCommon(int unit) { return unit == 0x3000 || (unit >= 0x3099 && unit <= 0x30FE) || unit >= 0xFF00; }

QString Translation(bool common) {
    const auto& folded = FoldingTable();
    QString from, to;
    for (int unit = 0x80; unit < 0x10000; ++unit) {
        const char16_t target = folded[static_cast<size_t>(unit)];
        if (target == unit || IsCommon(unit) != common) continue;
        from += QChar(unit);
        to += QChar(target);
    }
    return Literal(from) + QStringLiteral(", ") + Literal(to);
}

// A class of all that the second translation may find.
QString RareClass() {
    const auto& folded = FoldingTable();
    QString ranges;
    int begin = -1;
    for (int unit = 0x80; unit < 0x10000; ++unit) {
        const bool rare = folded[static_cast<size_t>(unit)] != unit && !IsCommon(unit);
        if (rare && begin < 0) begin = unit;
        if (rare || begin < 0) continue;
        ranges += QChar(begin);
        if (unit - 1 > begin) ranges += u'-' + QString(QChar(unit - 1));
        begin = -1;
    }
    return Literal(u'[' + ranges + u']');
}

QString Joining(char32_t mark) {
    QString expression = QStringLiteral("folded");
    for (const QChar kana : VoiceableKana(mark)) {
        const char32_t whole = Voiced(kana.unicode(), mark);
        expression = QStringLiteral("replace(%1, '%2%3', '%4')")
                         .arg(expression, QString(kana), QString::fromUcs4(&mark, 1), QString::fromUcs4(&whole, 1));
    }
    const QString sign = QString::fromUcs4(&mark, 1);
    return QStringLiteral(" IF strpos(folded, '%1') > 1 THEN folded := %2; END IF;").arg(sign, expression);
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

// The place of a character in that literal, in characters; -1 where it has none.
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

// One byte for each kana: its vowel, and its shade above that.
QString KanaLiteral() {
    QByteArray bytes;
    for (int unit = kKana.first; unit <= kKana.last; ++unit) {
        const OrderWeight weight = OrderWeightOf(static_cast<char32_t>(unit));
        bytes += static_cast<char>(weight.shade * 8 + weight.vowel);
    }
    return HexLiteral(bytes);
}

QString FoldingStatement() {
    return QStringLiteral(
               "CREATE OR REPLACE FUNCTION %1(stored text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE"
               " COST 100 AS $suite$ DECLARE folded text; BEGIN"
               " folded := translate(lower(stored COLLATE \"C\"), %2);"
               " IF folded ~ %3 THEN folded := translate(folded, %4); END IF;%5%6"
               " RETURN folded; END $suite$")
        .arg(PostgresFoldingFunction(), Translation(true), RareClass(), Translation(false), Joining(kVoicingMark),
             Joining(kSemiVoicingMark));
}

QString OrderStatement() {
    const OrderWeight vowel = OrderWeightOf(u'あ');
    const QString vowels = HexLiteral(Packed(vowel));
    return QStringLiteral(
               "CREATE OR REPLACE FUNCTION %1(stored text) RETURNS bytea LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL "
               "SAFE"
               " COST 1000 AS $suite$ DECLARE sign text; code integer; place integer; kana integer; vowel integer := 0;"
               " weights bytea := ''; shades bytea := ''; BEGIN"
               " FOREACH sign IN ARRAY string_to_array(%2(stored), NULL) LOOP"
               " code := ascii(sign);"
               " IF code = %3 AND vowel > 0 THEN"
               " weights := weights || set_byte(%4, 2, vowel); shades := shades || '\\x0%5'::bytea; CONTINUE; END IF;"
               " kana := CASE WHEN code BETWEEN %6 AND %7 THEN get_byte(%8, code - %6) ELSE 0 END;"
               " vowel := kana & 7; shades := shades || set_byte('\\x00'::bytea, 0, kana >> 3);"
               " place := %9;")
               .arg(PostgresOrderFunction(), PostgresFoldingFunction())
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

}  // namespace platform
