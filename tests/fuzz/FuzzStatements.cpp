// Statements translated for each engine: the desktop engine compiles or rejects them without a crash, literals are
// unchanged, and servers never get a LIKE or ORDER BY that depends on their own collation.

#include <sqlite3.h>

#include "database/sql/ParameterisedStatement.h"
#include "database/sql/SyntaxTree.h"
#include "database/sql/Tokenizer.h"
#include "database/sqlite/SqliteHandle.h"
#include "fuzz/AdapterRules.h"
#include "fuzz/FuzzInput.h"

namespace {

const database::TextRules kRules = {{QStringLiteral("x")}, {QStringLiteral("y")}};

sqlite3* Engine() {
    static sqlite3* const database = [] {
        sqlite3* made = nullptr;
        sqlite3_open(":memory:", &made);
        database::AddSuiteText(made);
        sqlite3_exec(made, "CREATE TABLE a (x TEXT, y TEXT); CREATE TABLE b (x TEXT, z TEXT)", nullptr, nullptr,
                     nullptr);
        return made;
    }();
    return database;
}

/// True if the lifted values are those of the last text literals.
bool ArriveAsWritten(const std::vector<database::Token>& tokens, const database::ParameterisedStatement& lifted) {
    size_t left = lifted.LiteralCount();
    for (auto token = tokens.rbegin(); token != tokens.rend() && left > 0; ++token) {
        if (token->kind != database::TokenKind::Text) continue;
        QString written = token->text.sliced(1, token->text.size() - 2);
        written.replace(QStringLiteral("''"), QStringLiteral("'"));
        if (lifted.Literal(--left) != written.toUtf8()) return false;
    }
    return left == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString sql = FuzzInput(data, size).Text();
    const std::vector<database::Token> tokens = database::SplitStatement(sql);
    QString whole;
    for (const database::Token& token : tokens) whole += token.leadingTrivia + token.text;
    Require(whole == sql, "the tokens are the statement");
    if (const auto tree = database::ParseStatement(sql))
        Require(database::StatementText(*tree) == sql, "an untouched tree is the statement");
    database::ParameterisedStatement lifted;
    for (int time = 0; time < 2; ++time) {  // the second time from the cached shape
        lifted.Lift(sql);
        Require(ArriveAsWritten(tokens, lifted), "a text in quotes arrives as it was written");
    }
    const QByteArray adapted = CheckForEveryEngine(sql, kRules).toUtf8();
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(Engine(), adapted.constData(), static_cast<int>(adapted.size()), &statement, nullptr);
    sqlite3_finalize(statement);
    return 0;
}
