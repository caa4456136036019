#include "database/odbc/LookupCache.h"

#include <algorithm>

#include "database/DatabaseError.h"
#include "database/sql/Quoting.h"
#include "database/sqlite/SqliteQuery.h"
#include "platform/Utf8Text.h"

namespace database {
namespace {

constexpr quint64 kRowsForRun = 16;  // fetching this many rows at once costs about half of a single lookup
constexpr quint64 kMostRows = 500'000;
constexpr quint64 kTriesGrowBy = 4;

bool IsDigits(QByteArrayView text) {
    return std::all_of(text.begin(), text.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
}

// Quoted for the suite's dialect; the server's adapter translates the brackets.
QString Bracketed(const QString& name) { return u'[' + name + u']'; }

bool IsTextType(const QString& type) {
    return type.contains(QStringLiteral("TEXT")) || type.startsWith(QStringLiteral("VARCHAR"));
}

SqliteDatabase InMemory() {
    sqlite3* raw = nullptr;
    const int code =
        sqlite3_open_v2(":memory:", &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    SqliteDatabase database(raw);
    if (code != SQLITE_OK) throw SqliteFailure(raw);
    return database;
}

void InsertRows(sqlite3* database, const QString& table, const ResultTable& rows) {
    const int columns = rows.Columns().Count();
    const QStringList places(columns, QStringLiteral("?"));
    const SqliteStatement statement =
        PrepareSql(database, QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(QuotedName(table), places.join(u',')));
    sqlite3_stmt* raw = statement.get();
    for (int row = 0; row < rows.RowCount(); ++row) {
        const SqliteRun run(raw);
        sqlite3_clear_bindings(raw);
        for (int column = 0; column < columns; ++column) {
            if (rows.IsNull(row, column)) continue;
            const QByteArrayView cell = rows.Utf8(row, column);
            sqlite3_bind_text(raw, column + 1, cell.data(), static_cast<int>(cell.size()), SQLITE_STATIC);
        }
        if (sqlite3_step(raw) != SQLITE_DONE) throw SqliteFailure(database);
    }
}

}  // namespace

void LookupCache::Forget() { lookups_.clear(); }

std::shared_ptr<LookupCache::Lookup> LookupCache::Known(const ParameterisedStatement& lifted) {
    std::shared_ptr<Lookup>& known = lookups_[lifted.Text()];
    if (known != nullptr) return known;
    known = std::make_shared<Lookup>();
    known->shape = ReadLookup(lifted.Text());
    if (known->shape && known->shape->terms.size() != lifted.LiteralCount()) known->shape.reset();
    return known;
}

void LookupCache::Note(Lookup& lookup, const ParameterisedStatement& lifted) const {
    const bool first = lookup.runs++ == 0;
    for (size_t i = 0; i < lifted.LiteralCount(); ++i) {
        const QByteArrayView value = lifted.Literal(i);
        if (first) {
            lookup.values.push_back(value.toByteArray());
            lookup.varies.push_back(false);
        } else if (lookup.values[i] != value) {
            lookup.varies[i] = true;
        }
    }
}

std::shared_ptr<ResultTable> LookupCache::Find(const QString& sql, const ParameterisedStatement& lifted) {
    if (lifted.LiteralCount() == 0 || givenUp_) return nullptr;
    // Keeps the entry alive: a failed fetch ends the scope and clears lookups_.
    const std::shared_ptr<Lookup> known = Known(lifted);
    Lookup& lookup = *known;
    if (!lookup.shape) return nullptr;
    if (lookup.copy == nullptr) {
        Note(lookup, lifted);
        if (lookup.runs >= lookup.nextTry) TryCopy(lookup);
    }
    if (lookup.copy == nullptr || !Covers(lookup, lifted)) return nullptr;
    return lookup.copy->Query(sql);
}

bool LookupCache::Covers(const Lookup& lookup, const ParameterisedStatement& lifted) const {
    for (size_t i = 0; i < lookup.values.size(); ++i) {
        const bool covered = lookup.varies[i] ? IsDigits(lifted.Literal(i)) : lookup.values[i] == lifted.Literal(i);
        if (!covered) return false;
    }
    return true;
}

void LookupCache::TryCopy(Lookup& lookup) {
    const quint64 most = std::min(lookup.runs * kRowsForRun, kMostRows);
    lookup.nextTry = lookup.runs * kTriesGrowBy;
    QStringList conditions;
    for (const LookupQuery::Term& term : lookup.shape->terms)
        if (!lookup.varies[term.literal])
            conditions.append(Bracketed(term.column) + u' ' + term.op + u' ' +
                              TextLiteral(platform::TextFromUtf8(lookup.values[term.literal])));
    const QString where = conditions.isEmpty() ? QString() : QStringLiteral(" WHERE ") + conditions.join(u" AND ");
    const auto rows = FetchedOrNone(
        QStringLiteral("SELECT TOP %1 * FROM %2").arg(most + 1).arg(Bracketed(lookup.shape->table)) + where);
    if (rows == nullptr || static_cast<quint64>(rows->RowCount()) > most) return;
    if (Comparable(lookup, *rows))
        lookup.copy = Filled(lookup, *rows);
    else
        lookup.shape.reset();
}

std::shared_ptr<ResultTable> LookupCache::FetchedOrNone(const QString& sql) {
    try {
        return fetch_(sql);
    } catch (const DatabaseError&) {
        givenUp_ = true;
        return nullptr;
    }
}

// Columns that the copy compares or sorts by must contain digits only.
bool LookupCache::Comparable(const Lookup& lookup, const ResultTable& rows) const {
    QStringList names = lookup.shape->order;
    for (const LookupQuery::Term& term : lookup.shape->terms)
        if (lookup.varies[term.literal]) names.append(term.column);
    for (int column = 0; column < rows.Columns().Count(); ++column)
        if (!IsTextType(rows.Columns().DeclaredType(column))) return false;
    for (const QString& name : names) {
        const int column = rows.Columns().Find(name);
        if (column < 0) return false;
        for (int row = 0; row < rows.RowCount(); ++row)
            if (!rows.IsNull(row, column) && !IsDigits(rows.Utf8(row, column))) return false;
    }
    return true;
}

std::unique_ptr<SqliteSession> LookupCache::Filled(const Lookup& lookup, const ResultTable& rows) const {
    SqliteDatabase database = InMemory();
    QStringList columns, keys;
    for (int column = 0; column < rows.Columns().Count(); ++column)
        columns.append(QuotedName(rows.Columns().Name(column)) + u' ' + rows.Columns().DeclaredType(column));
    for (const LookupQuery::Term& term : lookup.shape->terms)
        if (lookup.varies[term.literal] && term.op == u"=") keys.append(QuotedName(term.column));
    for (const QString& column : lookup.shape->order) keys.append(QuotedName(column));
    const QString& table = lookup.shape->table;
    RunSql(database.get(), QStringLiteral("CREATE TABLE %1 (%2)").arg(QuotedName(table), columns.join(u',')));
    RunSql(database.get(), QStringLiteral("BEGIN"));
    InsertRows(database.get(), table, rows);
    RunSql(database.get(), QStringLiteral("COMMIT"));
    keys.removeDuplicates();
    if (!keys.isEmpty())
        RunSql(database.get(), QStringLiteral("CREATE INDEX 鍵 ON %1 (%2)").arg(QuotedName(table), keys.join(u',')));
    return std::make_unique<SqliteSession>(std::move(database), rules_);
}

}  // namespace database
