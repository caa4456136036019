#pragma once

#include <QString>
#include <QStringView>
#include <vector>

// Tokenizer for SQL statements.

namespace database {

enum class TokenKind {
    Word,         ///< keyword or unquoted name; all characters beyond ASCII are word characters
    Quoted,       ///< "name" or `name`, with doubled quotes inside
    Bracket,      ///< [name] without "]" inside
    Text,         ///< 'text' with doubled quotes inside
    Number,       ///< 12, 1.5e3, 0x1F and x'0AFF'
    Punctuation,  ///< one operator or punctuation mark
    Parameter,    ///< ?, ?12, :name, @name, $name, #name
    Invalid,      ///< unclosed quote or bracket, or a NUL; extends to the end of the text
    End           ///< only blanks and comments are left
};

/// Position of a token: UTF-16 offsets in the statement.
struct TokenSpan {
    TokenKind kind;
    qsizetype begin;  ///< offset of the token itself, after blanks and comments
    qsizetype end;    ///< after the last character
};

/// The first token at or after offset `from`, which must not be inside a token. All code that tokenizes statements uses
/// this function.
TokenSpan NextToken(QStringView sql, qsizetype from);

/// A token with its text.
struct Token {
    TokenKind kind;
    QString leadingTrivia;  ///< blanks and comments before it
    QString text;

    /// True for an unquoted word equal to `keyword` (in upper case), ignoring case.
    bool Is(QStringView keyword) const;
};

/// All tokens; the last one is End with the trailing blanks and comments. Concatenating `leadingTrivia` and `text` of
/// all tokens yields the original text exactly.
std::vector<Token> SplitStatement(QStringView sql);

/// True if the text contains only blanks, comments and semicolons.
bool IsEmptyStatement(QStringView sql);

}  // namespace database
