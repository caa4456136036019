#include "database/sql/Tokenizer.h"

#include <array>
#include <string_view>

namespace database {
namespace {

enum Class : quint8 { kSign, kBlank, kWord, kDigit, kQuote, kBracket, kMark };

constexpr std::array<Class, 128> MakeClasses() {
    std::array<Class, 128> classes{};
    const auto set = [&classes](std::string_view characters, Class kind) {
        for (const char character : characters) classes[static_cast<unsigned char>(character)] = kind;
    };
    set("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_", kWord);
    set("0123456789", kDigit);
    set(" \t\n\r\f", kBlank);
    set("'\"`", kQuote);
    set("[", kBracket);
    set("?:@$#", kMark);
    return classes;
}

constexpr std::array<Class, 128> kClasses = MakeClasses();

Class ClassOf(QChar unit) { return unit.unicode() < 128 ? kClasses[unit.unicode()] : kWord; }

bool InWord(QChar unit) {
    const Class c = ClassOf(unit);
    return c == kWord || c == kDigit || unit == u'$';
}

// The code unit at an offset, or NUL past the end.
char16_t UnitAt(QStringView sql, qsizetype at) { return at < sql.size() ? sql.utf16()[at] : u'\0'; }

qsizetype SkipBlanksAndComments(QStringView sql, qsizetype at) {
    const qsizetype size = sql.size();
    while (at < size) {
        const QChar unit = sql[at];
        if (ClassOf(unit) == kBlank) {
            ++at;
        } else if (unit == u'-' && UnitAt(sql, at + 1) == u'-') {
            const qsizetype line = sql.indexOf(u'\n', at);
            at = line < 0 ? size : line + 1;
        } else if (unit == u'/' && UnitAt(sql, at + 1) == u'*') {
            const qsizetype close = sql.indexOf(u"*/", at + 2);
            at = close < 0 ? size : close + 2;
        } else {
            break;
        }
    }
    return at;
}

// Offset after the closing quote, or -1 if it is missing.
qsizetype EndOfQuote(QStringView sql, qsizetype at) {
    const QChar quote = sql[at];
    for (;;) {
        at = sql.indexOf(quote, at + 1);
        if (at < 0) return -1;
        if (at + 1 >= sql.size() || sql[at + 1] != quote) return at + 1;
        ++at;
    }
}

qsizetype EndOfWord(QStringView sql, qsizetype at) {
    while (at < sql.size() && InWord(sql[at])) ++at;
    return at;
}

qsizetype EndOfNumber(QStringView sql, qsizetype at) {
    while (at < sql.size()) {
        const bool exponentSign = (sql[at] == u'+' || sql[at] == u'-') && sql[at - 1].toLower() == u'e';
        if (!InWord(sql[at]) && sql[at] != u'.' && !exponentSign) break;
        ++at;
    }
    return at;
}

constexpr std::array<std::array<char16_t, 2>, 9> kPairs = {{{u'<', u'='},
                                                            {u'>', u'='},
                                                            {u'<', u'>'},
                                                            {u'!', u'='},
                                                            {u'=', u'='},
                                                            {u'|', u'|'},
                                                            {u'<', u'<'},
                                                            {u'>', u'>'},
                                                            {u'-', u'>'}}};

qsizetype EndOfSign(QStringView sql, qsizetype at) {
    for (const auto& pair : kPairs)
        if (UnitAt(sql, at) == pair[0] && UnitAt(sql, at + 1) == pair[1]) return at + 2;
    return at + 1;
}

TokenSpan Closed(TokenKind kind, QStringView sql, qsizetype begin, qsizetype end) {
    if (end < 0) return {TokenKind::Invalid, begin, sql.size()};
    return {kind, begin, end};
}

TokenSpan WordOrBlob(QStringView sql, qsizetype begin) {
    const qsizetype end = EndOfWord(sql, begin);
    const bool blob = end - begin == 1 && sql[begin].toLower() == u'x' && UnitAt(sql, end) == u'\'';
    if (blob) return Closed(TokenKind::Number, sql, begin, EndOfQuote(sql, end));
    return {TokenKind::Word, begin, end};
}

}  // namespace

TokenSpan NextToken(QStringView sql, qsizetype from) {
    const qsizetype begin = SkipBlanksAndComments(sql, from);
    if (begin >= sql.size()) return {TokenKind::End, sql.size(), sql.size()};
    switch (ClassOf(sql[begin])) {
        case kWord:
            return WordOrBlob(sql, begin);
        case kDigit:
            return {TokenKind::Number, begin, EndOfNumber(sql, begin + 1)};
        case kQuote: {
            const TokenKind kind = sql[begin] == u'\'' ? TokenKind::Text : TokenKind::Quoted;
            return Closed(kind, sql, begin, EndOfQuote(sql, begin));
        }
        case kBracket: {
            const qsizetype close = sql.indexOf(u']', begin);
            return Closed(TokenKind::Bracket, sql, begin, close < 0 ? -1 : close + 1);
        }
        case kMark:
            return {TokenKind::Parameter, begin, EndOfWord(sql, begin + 1)};
        default:
            // The engine stops at a NUL and would ignore the rest.
            if (sql[begin].isNull()) return {TokenKind::Invalid, begin, sql.size()};
            return {TokenKind::Punctuation, begin, EndOfSign(sql, begin)};
    }
}

bool Token::Is(QStringView keyword) const {
    return kind == TokenKind::Word && QStringView(text).compare(keyword, Qt::CaseInsensitive) == 0;
}

std::vector<Token> SplitStatement(QStringView sql) {
    std::vector<Token> tokens;
    qsizetype from = 0;
    for (;;) {
        const TokenSpan span = NextToken(sql, from);
        tokens.push_back({span.kind, sql.sliced(from, span.begin - from).toString(),
                          sql.sliced(span.begin, span.end - span.begin).toString()});
        if (span.kind == TokenKind::End) return tokens;
        from = span.end;
    }
}

bool IsEmptyStatement(QStringView sql) {
    qsizetype from = 0;
    for (;;) {
        const TokenSpan span = NextToken(sql, from);
        if (span.kind == TokenKind::End) return true;
        if (span.kind != TokenKind::Punctuation || sql[span.begin] != u';') return false;
        from = span.end;
    }
}

}  // namespace database
