#include "report-host/layout/ReportRowStore.h"

#include "database/sql/Quoting.h"
#include "database/sqlite/SqliteQuery.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

database::SqliteDatabase OpenPrivateFile() {
    sqlite3* raw = nullptr;
    // An empty name is an anonymous temporary database, which SQLite deletes on close.
    const int code = sqlite3_open_v2("", &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    database::SqliteDatabase database(raw);
    if (code != SQLITE_OK) throw database::SqliteFailure(raw);
    database::RunPlain(raw, "PRAGMA journal_mode=OFF");
    database::RunPlain(raw, "PRAGMA synchronous=OFF");
    database::RunPlain(raw, "PRAGMA cache_size=-256");  // KiB; rows are read sequentially, so a cache does not help
    return database;
}

}  // namespace

ReportRowStore::ReportRowStore(sqlite3* source, const QString& table, const QStringList& columns,
                               const QStringList& order)
    : database_(OpenPrivateFile()), width_(static_cast<int>(columns.size())) {
    QStringList named{u"c0"_s};  // at least one column, so that rows can be counted even if the template shows none
    for (int i = 1; i < width_; ++i) named.append(u"c%1"_s.arg(i));
    database::RunSql(database_.get(), u"CREATE TABLE report_rows ("_s + named.join(u", "_s) + u')');
    Copy(source, u"SELECT "_s + (columns.isEmpty() ? u"NULL"_s : database::QuotedNames(columns)) + u" FROM "_s +
                     database::QuotedName(table) +
                     (order.isEmpty() ? QString() : u" ORDER BY "_s + database::QuotedNames(order)));
    read_ = database::PrepareSql(database_.get(), u"SELECT * FROM report_rows WHERE rowid = ?"_s);
}

void ReportRowStore::Copy(sqlite3* source, const QString& select) {
    const database::SqliteStatement from = database::PrepareSql(source, select);
    const int width = sqlite3_column_count(from.get());
    const database::SqliteStatement to = database::PrepareSql(
        database_.get(), u"INSERT INTO report_rows VALUES ("_s + QStringList(width, u"?"_s).join(u", "_s) + u')');
    database::RunSql(database_.get(), u"BEGIN"_s);
    while (database::NextRow(from.get())) {
        for (int i = 0; i < width; ++i)
            if (sqlite3_bind_value(to.get(), i + 1, sqlite3_column_value(from.get(), i)) != SQLITE_OK)
                throw database::SqliteFailure(database_.get());
        database::NextRow(to.get());
        sqlite3_reset(to.get());
        ++count_;
    }
    database::RunSql(database_.get(), u"COMMIT"_s);
}

QStringList ReportRowStore::Row(int row) {
    const database::SqliteRun run(read_.get());
    sqlite3_bind_int(read_.get(), 1, row + 1);
    if (sqlite3_step(read_.get()) != SQLITE_ROW) throw database::SqliteFailure(database_.get());
    QStringList values;
    values.reserve(width_);
    for (int i = 0; i < width_; ++i) values.append(database::ColumnText(read_.get(), i));
    return values;
}

}  // namespace report
