// Part of PreparedStatements.h: InsertTarget.

#include "database/sqlite/PreparedStatements.h"

#include <QStringList>
#include <algorithm>

#include "database/sql/Quoting.h"

namespace database {
namespace {

QString Quoted(const char* name) { return QuotedName(QString::fromUtf8(name)); }

[[noreturn]] void ThrowNotUpdatable() {
    throw DatabaseError(kNotUpdatable, QStringLiteral("1 つの表の列だけからなる検索でないため、追加できません。"));
}

bool SamePlaces(const std::vector<int>& places, const std::vector<WrittenField>& fields) {
    return std::equal(places.begin(), places.end(), fields.begin(), fields.end(),
                      [](int place, const WrittenField& field) { return place == field.column; });
}

}  // namespace

InsertTarget::InsertTarget(sqlite3* database, sqlite3_stmt* query) : database_(database) {
    for (int column = 0; column < sqlite3_column_count(query); ++column) {
        const char* table = sqlite3_column_table_name(query, column);
        const char* origin = sqlite3_column_origin_name(query, column);
        if (table == nullptr || origin == nullptr) ThrowNotUpdatable();
        if (table_.isEmpty()) table_ = Quoted(table);
        if (table_ != Quoted(table)) ThrowNotUpdatable();
        columns_.append(Quoted(origin));
    }
}

QString InsertTarget::InsertText(const std::vector<WrittenField>& fields) const {
    const QString head = QStringLiteral("INSERT INTO ") + table_;
    if (fields.empty()) return head + QStringLiteral(" DEFAULT VALUES");
    QStringList names;
    for (const WrittenField& field : fields) names.append(columns_[field.column]);
    const QStringList places(names.size(), QStringLiteral("?"));
    return head + u'(' + names.join(u',') + QStringLiteral(") VALUES (") + places.join(u',') + u')';
}

SqliteStatement InsertTarget::Prepare(const QString& sql) const {
    const QByteArray utf8 = sql.toUtf8();
    sqlite3_stmt* raw = nullptr;
    const int code = sqlite3_prepare_v3(database_, utf8.constData(), static_cast<int>(utf8.size()),
                                        SQLITE_PREPARE_PERSISTENT, &raw, nullptr);
    if (code != SQLITE_OK) throw SqliteFailure(database_);
    return SqliteStatement(raw);
}

// Fast path: most records set the same columns in the same order as the previous one.
sqlite3_stmt* InsertTarget::StatementFor(const std::vector<WrittenField>& fields) {
    if (last_ != nullptr && SamePlaces(lastPlaces_, fields)) return last_;
    std::vector<int> places;
    places.reserve(fields.size());
    for (const WrittenField& field : fields) places.push_back(field.column);
    auto found = statements_.find(places);
    if (found == statements_.end()) found = statements_.emplace(places, Prepare(InsertText(fields))).first;
    lastPlaces_ = std::move(places);
    return last_ = found->second.get();
}

void InsertTarget::Insert(const std::vector<WrittenField>& fields) {
    sqlite3_stmt* statement = StatementFor(fields);
    const SqliteRun run(statement);
    std::vector<QByteArray> values;  // bound without a copy: must outlive the run
    values.reserve(fields.size());
    for (const WrittenField& field : fields) {
        values.push_back(field.value.toUtf8());
        const int parameter = static_cast<int>(values.size());
        if (sqlite3_bind_text(statement, parameter, values.back().constData(), static_cast<int>(values.back().size()),
                              SQLITE_STATIC) != SQLITE_OK)
            throw SqliteFailure(database_);
    }
    if (sqlite3_step(statement) != SQLITE_DONE) throw SqliteFailure(database_);
}

}  // namespace database
