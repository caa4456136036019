#include "report-host/layout/SqliteQuery.h"

#include <QStringList>

#include "platform/Utf8Text.h"

using namespace Qt::StringLiterals;

namespace report {

QString QuotedName(const QString& name) {
    QString doubled = name;
    return u'"' + doubled.replace(u'"', u"\"\""_s) + u'"';
}

database::SqliteStatement PrepareStatement(sqlite3* database, const QString& sql, const QStringList& texts) {
    const QByteArray utf8 = sql.toUtf8();
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(database, utf8.constData(), static_cast<int>(utf8.size()), &raw, nullptr) != SQLITE_OK)
        throw database::SqliteFailure(database);
    database::SqliteStatement statement(raw);
    for (int i = 0; i < texts.size(); ++i) {
        const QByteArray text = texts[i].toUtf8();
        if (sqlite3_bind_text(raw, i + 1, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT) !=
            SQLITE_OK)
            throw database::SqliteFailure(database);
    }
    return statement;
}

void EachRow(sqlite3* database, sqlite3_stmt* statement, const std::function<void()>& row) {
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) row();
    if (code != SQLITE_DONE) throw database::SqliteFailure(database);
}

QString TextOf(sqlite3_stmt* statement, int column) {
    const bool null = sqlite3_column_type(statement, column) == SQLITE_NULL;
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    if (text == nullptr && !null) throw database::SqliteFailure(sqlite3_db_handle(statement));
    return platform::TextFromUtf8({text, sqlite3_column_bytes(statement, column)});
}

QStringList ColumnsOf(sqlite3* database, const QString& table) {
    QStringList columns;
    const database::SqliteStatement statement =
        PrepareStatement(database, u"SELECT name FROM pragma_table_info(?)"_s, {table});
    EachRow(database, statement.get(), [&] { columns.append(TextOf(statement.get(), 0)); });
    return columns;
}

}  // namespace report
