#pragma once

#include <QString>
#include <QStringView>
#include <vector>

namespace database {

enum class TokenKind {
    Word,       ///< keyword or plain name; every character beyond ASCII belongs to a word
    Quoted,     ///< "name", a quote inside doubled
    Bracket,    ///< [name], without any "]" inside
    Text,       ///< 'text', a quote inside doubled
    Number,     ///< 12, 1.5e3, 0x1F and x'0AFF'
    Sign,       ///< one operator or punctuation mark
    Parameter,  ///< ?, ?12, :name, @name, $name
    Invalid,    ///< from here to the end of the text nothing can be told: a quote or bracket is not closed
    End         ///< nothing but blanks and comments is left
};

struct TokenSpan {
    TokenKind kind;
    qsizetype begin;  ///< where the token itself begins, behind blanks and comments
    qsizetype end;
};

/// The token at or behind `from`. The one place that knows how a statement's text is cut.
TokenSpan NextToken(QStringView sql, qsizetype from);

struct Token {
    TokenKind kind;
    QString before;  ///< blanks and comments in front of it
    QString text;

    /// True for a plain word that equals `keyword`, written in capitals, without regard to case.
    bool Is(QStringView keyword) const;
};

/// All tokens; the last one is End and carries what stands behind the last real token. The texts together are
/// the statement again, character by character.
std::vector<Token> SplitStatement(QStringView sql);

/// True for a text with nothing in it but blanks, comments and semicolons.
bool IsEmptyStatement(QStringView sql);

}  // namespace database
