#pragma once

#include <QString>
#include <QStringView>
#include <vector>

// Tokenizer for SQL statements.

namespace database {

enum class TokenKind {
    Word,         ///< keyword or unquoted name; all characters beyond ASCII are word characters
    Quoted,       ///< "name" with doubled quotes inside
    Bracket,      ///< [name] without "]" inside
    Text,         ///< 'text' with doubled quotes inside
    Number,       ///< 12, 1.5e3, 0x1F and x'0AFF'
    Punctuation,  ///< one operator or punctuation mark
    Parameter,    ///< ?, ?12, :name, @name, $name
    Invalid,      ///< unclosed quote or bracket; extends to the end of the text
    End           ///< only blanks and comments are left
};

struct TokenSpan {
    TokenKind kind;
    qsizetype begin;  ///< offset of the token itself, after blanks and comments
    qsizetype end;
};

/// The first token at or after offset `from`. All code that tokenizes statements uses this function.
TokenSpan NextToken(QStringView sql, qsizetype from);

struct Token {
    TokenKind kind;
    QString leadingTrivia;  ///< blanks and comments before it
    QString text;

    /// True for an unquoted word equal to `keyword` (in upper case), ignoring case.
    bool Is(QStringView keyword) const;
};

/// All tokens, the last one End with the trailing blanks and comments. Concatenating `leadingTrivia` and `text` of all
/// tokens yields the original statement exactly.
std::vector<Token> SplitStatement(QStringView sql);

/// True if the text contains only blanks, comments and semicolons.
bool IsEmptyStatement(QStringView sql);

}  // namespace database
