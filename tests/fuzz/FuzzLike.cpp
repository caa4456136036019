// LIKE patterns: none hangs or reads out of bounds, those without wildcards match exactly their own text, and the
// translations for the servers match the same texts.

#include <QRegularExpression>

#include "database/collation/LikePattern.h"
#include "database/collation/TextFolding.h"
#include "fuzz/FuzzInput.h"

namespace {

QString Folded(const QByteArray& utf8) {
    QString folded;
    for (database::FoldedReader reader(utf8); !reader.AtEnd();) folded += platform::TextOfCharacter(reader.Next());
    return folded;
}

/// Reference LIKE with only "%" and "_", by character.
bool PlainLike(const QList<uint>& pattern, const QList<uint>& text) {
    QList<bool> reached(text.size() + 1, false);
    reached[0] = true;
    for (const uint sign : pattern) {
        for (qsizetype at = text.size(); sign != u'%' && at >= 0; --at)
            reached[at] = at > 0 && reached[at - 1] && (sign == u'_' || sign == text[at - 1]);
        for (qsizetype at = 1; sign == u'%' && at <= text.size(); ++at) reached[at] = reached[at] || reached[at - 1];
    }
    return reached.last();
}

/// Empty if the regex engine hits its limits.
std::optional<bool> Matches(const QString& expression, const QString& text) {
    const QRegularExpression compiled(expression, QRegularExpression::UseUnicodePropertiesOption);
    Require(compiled.isValid(), "a pattern becomes an expression that compiles");
    const QRegularExpressionMatch match = compiled.match(text);
    return match.isValid() ? std::optional(match.hasMatch()) : std::nullopt;
}

void CheckServers(const database::LikePattern& pattern, const QByteArray& text, bool found) {
    const QString folded = Folded(text);
    if (const auto plain = database::FoldedLikeText(pattern))
        Require(PlainLike(plain->toUcs4(), folded.toUcs4()) == found, "a plain LIKE takes the same folded texts");
    QString expression = database::FoldedExpression(pattern);
    expression.chop(1);  // PCRE's "$" also matches before a final newline
    Require(Matches(expression + QStringLiteral("\\z"), folded).value_or(found) == found,
            "the expression for folded texts takes the same ones");
    Require(Matches(database::StoredExpression(pattern), platform::TextFromUtf8(text)).value_or(found) == found,
            "the expression for stored texts takes the same ones");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const QByteArray pattern = input.Bytes(), text = input.Bytes();
    const auto compiled = database::LikePattern::Compile(pattern);
    if (!compiled) {
        Require(pattern.contains('['), "only an open list is refused");
        return 0;
    }
    const bool found = compiled->Matches(text);
    const auto anywhere = database::LikePattern::Compile('%' + pattern + '%');
    Require(anywhere.has_value(), "a pattern stays one between percent signs");
    Require(!found || anywhere->Matches(text), "what matches the whole is found anywhere");
    if (!pattern.contains('%') && !pattern.contains('_') && !pattern.contains('['))
        Require(compiled->Matches(pattern), "a plain text matches itself");
    // A statement ends at a NUL, and contains valid Unicode only.
    const QByteArray both = pattern + text;
    if (!both.contains('\0') && both.isValidUtf8() && both.size() < 400) CheckServers(*compiled, text, found);
    return 0;
}
