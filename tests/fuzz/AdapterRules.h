#pragma once

#include <QString>
#include <QStringList>
#include <algorithm>
#include <optional>

#include "database/odbc/ServerEngine.h"
#include "database/sql/StatementAdapter.h"
#include "database/sql/SyntaxTree.h"
#include "database/sql/Tokenizer.h"
#include "database/sqlite/SqliteSession.h"
#include "fuzz/FuzzInput.h"
#include "platform/RuntimeError.h"

// Invariants of every statement translated for each of the three engines.

/// A translated statement and the invariants to check.
class AdapterRules {
  public:
    AdapterRules(const QString& sql, const database::SqlDialect& engine, const database::TextRules& rules)
        : sql_(sql), engine_(engine), rules_(rules) {}

    /// Translates and checks the statement; empty if it was rejected.
    std::optional<QString> Check() const {
        const bool server = engine_.like != database::LikeWriting::Own;
        try {
            const QString adapted = database::Adapt(sql_, engine_, rules_).text;
            CheckTokens(adapted);
            if (server) CheckServerWords(adapted);
            return adapted;
        } catch (const database::DatabaseError& error) {
            Require(server, "the desktop engine gets every statement");
            Require(error.Number() == database::kStatementFailure, "a refusal is a failure of the statement");
            Require(!error.Description().isEmpty(), "a refusal has a reason");
            return std::nullopt;
        }
    }

  private:
    using Tokens = std::vector<database::Token>;

    static bool IsClosed(const Tokens& tokens) {
        int depth = 0;
        for (const database::Token& token : tokens) {
            if (token.kind == database::TokenKind::Invalid) return false;
            if (token.kind == database::TokenKind::Punctuation)
                depth += token.text == u"(" ? 1 : token.text == u")" ? -1 : 0;
            if (depth < 0) return false;
        }
        return depth == 0;
    }

    /// Text literals except LIKE patterns and ESCAPE characters.
    static QStringList Values(const Tokens& tokens) {
        QStringList values;
        bool pattern = false;
        for (const database::Token& token : tokens) {
            if (token.kind == database::TokenKind::Text && !pattern) values.append(token.text);
            const bool bracket = token.kind == database::TokenKind::Punctuation && token.text == u"(";
            pattern = token.Is(u"LIKE") || token.Is(u"ESCAPE") || token.Is(u"REGEXP") || token.text == u"~" ||
                      token.text == u"!~" || (pattern && bracket);
        }
        values.sort();
        return values;
    }

    void CheckTokens(const QString& adapted) const {
        const Tokens before = database::SplitStatement(sql_), after = database::SplitStatement(adapted);
        Require(IsClosed(after) == IsClosed(before), "quotes and brackets are closed as they were");
        if (!IsClosed(before)) return Require(adapted == sql_, "what can't be read passes as it is");
        const QStringList written = Values(before), sent = Values(after);
        Require(std::includes(sent.begin(), sent.end(), written.begin(), written.end()), "no text in quotes is lost");
        if (engine_.like == database::LikeWriting::Own) Require(sent == written, "no text in quotes is added");
    }

    void CheckServerWords(const QString& adapted) const {
        if (const auto tree = database::ParseStatement(adapted)) return CheckLevel(tree->level);
        const Tokens tokens = database::SplitStatement(adapted);
        if (!IsClosed(tokens)) return;  // the engine rejects it
        for (size_t at = 0; at < tokens.size(); ++at)
            if (adapted == sql_ && tokens[at].Is(u"LIKE") && (at == 0 || tokens[at - 1].text != u"."))
                Require(false, "no LIKE is sent in a statement that was not read");
    }

    void CheckLevel(const database::NodeList& level) const {
        bool order = false;
        for (size_t at = 0; at < level.size(); ++at) {
            if (level[at].group) CheckLevel(level[at].inside);
            if (level[at].Is(u"LIKE") && (at == 0 || !level[at - 1].IsPunctuation(u"."))) CheckLike(level, at);
            if (level[at].IsPunctuation(u";") || EndsOrderList(level[at])) order = false;
            const bool table = at + 1 < level.size() && level[at + 1].IsPunctuation(u".");
            if (order && !table)
                Require(!database::IsColumnOf(rules_.sortedAsText, level[at]), "no text is sorted by codes");
            if (at > 0 && level[at - 1].Is(u"ORDER") && level[at].Is(u"BY")) order = true;
        }
    }

    static bool EndsOrderList(const database::Node& node) {
        return node.Is(u"LIMIT") || node.Is(u"UNION") || node.Is(u"EXCEPT") || node.Is(u"INTERSECT");
    }

    void CheckLike(const database::NodeList& level, size_t at) const {
        Require(engine_.like == database::LikeWriting::FoldedText, "the engine's own LIKE is never sent");
        const size_t end = at > 0 && level[at - 1].Is(u"NOT") ? at - 1 : at;
        const bool folded = end >= 2 && level[end - 1].group && level[end - 2].Is(engine_.foldingFunction);
        Require(folded, "a LIKE compares folded texts");
        const bool literal = at + 1 < level.size() && level[at + 1].token.kind == database::TokenKind::Text;
        Require(literal, "a LIKE has one literal for its pattern");
    }

    const QString& sql_;
    const database::SqlDialect& engine_;
    const database::TextRules& rules_;
};

/// Checks the statement for both servers, and returns its text for the desktop engine.
inline QString CheckForEveryEngine(const QString& sql, const database::TextRules& rules) {
    for (const QString& engine : {QStringLiteral("PostgreSQL"), QStringLiteral("MariaDB")})
        AdapterRules(sql, database::EngineOf(engine).dialect, rules).Check();
    return *AdapterRules(sql, database::SqliteDialect(), rules).Check();
}
