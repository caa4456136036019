// Statements on their way to an engine: what the engine is given compiles or is refused, and a text in quotes arrives
// as it was written.

#include <sqlite3.h>

#include "fuzz/FuzzInput.h"
#include "platform/database/LiteralLift.h"
#include "platform/database/StatementAdapter.h"
#include "platform/database/StatementTokens.h"
#include "platform/database/StatementTree.h"

namespace {

const platform::EngineDifferences kEngine = {true, true, true, 200, QStringLiteral("BINARY"), QStringLiteral("NOCASE")};

sqlite3* Engine() {
    static sqlite3* const database = [] {
        sqlite3* made = nullptr;
        sqlite3_open(":memory:", &made);
        sqlite3_exec(made, "CREATE TABLE a (x TEXT, y TEXT); CREATE TABLE b (x TEXT, z TEXT)", nullptr, nullptr,
                     nullptr);
        return made;
    }();
    return database;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString sql = FuzzInput(data, size).Text();
    QString whole;
    for (const platform::Token& token : platform::SplitStatement(sql)) whole += token.before + token.text;
    Require(whole == sql, "the tokens are the statement");
    if (const auto tree = platform::ParseStatement(sql))
        Require(platform::StatementText(*tree) == sql, "an untouched tree is the statement");
    platform::LiftedStatement lifted;
    lifted.Lift(sql);
    const QByteArray adapted = platform::AdaptStatement(sql, kEngine, {}).toUtf8();
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(Engine(), adapted.constData(), static_cast<int>(adapted.size()), &statement, nullptr);
    sqlite3_finalize(statement);
    return 0;
}
