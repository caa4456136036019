// Part of SqliteHandle.h: AddSuiteText.

#include "database/sqlite/SqliteHandle.h"

#include "database/collation/LikePattern.h"
#include "database/collation/TextFolding.h"

namespace database {
namespace {

QByteArrayView TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? QByteArrayView() : QByteArrayView(text, sqlite3_value_bytes(value));
}

void DeletePattern(void* pattern) { delete static_cast<LikePattern*>(pattern); }

// The ESCAPE character, folded like the rest of the pattern. False if the value is not exactly one character.
bool ReadEscape(sqlite3_context* context, sqlite3_value* value, std::optional<char32_t>& escape) {
    FoldedReader reader(TextOf(value));
    if (!reader.AtEnd()) escape = reader.Next();
    if (escape && reader.AtEnd()) return true;
    sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
    return false;
}

std::optional<LikePattern> CompilePattern(sqlite3_context* context, int count, sqlite3_value** values) {
    std::optional<char32_t> escape;
    if (count == 3 && !ReadEscape(context, values[2], escape)) return std::nullopt;
    std::optional<LikePattern> pattern = LikePattern::Compile(TextOf(values[0]), escape);
    if (!pattern) sqlite3_result_error(context, "LIKE: \"[\" without \"]\"", -1);
    return pattern;
}

// X LIKE Y calls like(Y, X). The result is Null if any argument is Null.
void Like(sqlite3_context* context, int count, sqlite3_value** values) {
    for (int i = 0; i < count; ++i)
        if (sqlite3_value_type(values[i]) == SQLITE_NULL) return;
    // If the pattern is constant, the engine caches the compiled one for the duration of the statement. The cache is
    // keyed by the pattern only, and an escape may differ per row, so patterns with ESCAPE are always compiled.
    const auto* kept = count == 2 ? static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0)) : nullptr;
    if (kept == nullptr) {
        std::optional<LikePattern> pattern = CompilePattern(context, count, values);
        if (!pattern) return;
        sqlite3_result_int(context, pattern->Matches(TextOf(values[1])) ? 1 : 0);
        if (count == 2) sqlite3_set_auxdata(context, 0, new LikePattern(std::move(*pattern)), &DeletePattern);
        return;
    }
    sqlite3_result_int(context, kept->Matches(TextOf(values[1])) ? 1 : 0);
}

int Compare(void* /*unused*/, int oneSize, const void* one, int otherSize, const void* other) {
    return CompareTexts({static_cast<const char*>(one), oneSize}, {static_cast<const char*>(other), otherSize});
}

}  // namespace

int AddSuiteText(sqlite3* database) {
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    for (const int arguments : {2, 3}) {
        const int code =
            sqlite3_create_function_v2(database, "like", arguments, kFlags, nullptr, &Like, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) return code;
    }
    return sqlite3_create_collation_v2(database, kSuiteTextCollation, SQLITE_UTF8, nullptr, &Compare, nullptr);
}

}  // namespace database
