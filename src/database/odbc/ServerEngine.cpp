#include "database/odbc/ServerEngine.h"

#include "database/collation/PostgresFunctions.h"

namespace database {
namespace {

constexpr size_t kLongestChain = 200;  // limits on expression depth differ; all engines accept this

SqlDialect ServerDialect() {
    return {.topIsLimit = true, .bracketQuotedNames = true, .longestChain = kLongestChain, .hasPlusOuterJoin = true};
}

ServerEngine PostgreSql() {
    ServerEngine engine;
    engine.name = QStringLiteral("PostgreSQL");
    engine.adapted = true;
    engine.dialect = ServerDialect();
    engine.dialect.namesAreLowerCase = true;
    engine.dialect.nullsSortLast = true;
    engine.dialect.like = LikeWriting::FoldedText;
    engine.dialect.foldingFunction = PostgresFoldingFunction();
    engine.dialect.orderFunction = PostgresOrderFunction();
    // Collation "C": lower() changes only ASCII letters.
    engine.dialect.caseBlindCall = QStringLiteral("lower(operand COLLATE \"C\")");
    engine.fetch = OdbcFetch::Utf16Blocks;
    // The suite escapes quotes by doubling; a backslash must be literal, whatever the server's default is.
    engine.atStart = {QStringLiteral("SET statement_timeout = %1"),
                      QStringLiteral("SET standard_conforming_strings = on")};
    engine.readOnly = QStringLiteral("SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY");
    // The first query, not BEGIN, takes the snapshot.
    engine.beginReading = {QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"),
                           QStringLiteral("SELECT 1")};
    engine.beginWriting = QStringLiteral("BEGIN READ WRITE");
    engine.failureEndsTransaction = true;
    return engine;
}

ServerEngine MariaDb(const QString& name) {
    ServerEngine engine;
    engine.name = name;
    engine.adapted = true;
    engine.dialect = ServerDialect();
    engine.dialect.like = LikeWriting::RegularExpression;
    engine.dialect.sortsOnClient = true;
    // LOWER on the UTF-8 bytes, taken as latin1. Bytes below 0x80 are always ASCII. Beyond ASCII this case mapping only
    // turns lead bytes into those of longer sequences, so texts that differ in more than ASCII case stay different.
    engine.dialect.caseBlindCall =
        QStringLiteral("CAST(LOWER(CONVERT(CAST(CONVERT(operand USING utf8mb4) AS BINARY) USING latin1)) AS BINARY)");
    engine.fetch = OdbcFetch::Utf8Blocks;
    engine.atStart = {
        QStringLiteral("SET SESSION sql_mode = 'ANSI_QUOTES,NO_BACKSLASH_ESCAPES,PIPES_AS_CONCAT,"
                       "STRICT_TRANS_TABLES,NO_ENGINE_SUBSTITUTION'"
                       // Each of the two servers treats the other's setting as a comment.
                       " /*M!100100 , max_statement_time = %2 */ /*!50708 , max_execution_time = %1 */")};
    engine.readOnly = QStringLiteral("SET SESSION TRANSACTION READ ONLY");
    engine.beginReading = {QStringLiteral("SET TRANSACTION ISOLATION LEVEL REPEATABLE READ"),
                           QStringLiteral("START TRANSACTION WITH CONSISTENT SNAPSHOT, READ ONLY")};
    engine.beginWriting = QStringLiteral("START TRANSACTION READ WRITE");
    return engine;
}

}  // namespace

const ServerEngine& EngineOf(const QString& reportedName) {
    static const QList<ServerEngine> engines = {PostgreSql(), MariaDb(QStringLiteral("MariaDB")),
                                                MariaDb(QStringLiteral("MySQL"))};
    static const ServerEngine asWritten;
    for (const ServerEngine& engine : engines)
        if (reportedName.startsWith(engine.name, Qt::CaseInsensitive)) return engine;
    return asWritten;
}

}  // namespace database
