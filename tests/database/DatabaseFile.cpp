#include "database/DatabaseFile.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

DatabaseFile::DatabaseFile(const QString& name) : name_(name) { Run(u"CREATE TABLE 印 (値 TEXT)"_s); }

QString DatabaseFile::ConnectionString() const {
    return u"Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source="_s + Path();
}

void DatabaseFile::Run(const QString& statements) const {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(Path().toUtf8().constData(), &database), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(database, statements.toUtf8().constData(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
}

QString DatabaseFile::Value(const QString& statement) const {
    const OtherProgram program(Path());
    sqlite3_stmt* handle = nullptr;
    sqlite3_prepare_v2(program.Handle(), statement.toUtf8().constData(), -1, &handle, nullptr);
    QString value;
    if (sqlite3_step(handle) == SQLITE_ROW)
        value = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(handle, 0)));
    sqlite3_finalize(handle);
    return value;
}

OtherProgram::OtherProgram(const QString& path) {
    EXPECT_EQ(sqlite3_open_v2(path.toUtf8().constData(), &database_, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
}

int OtherProgram::Run(const char* statement) const {
    return sqlite3_exec(database_, statement, nullptr, nullptr, nullptr);
}

QStringList Column(database::Connection& connection, const QString& sql, QStringView field) {
    database::Recordset rows;
    rows.Open(sql, connection);
    QStringList values;
    for (; !rows.AtEOF(); rows.MoveNext()) values.append(rows[field].TextOr(u"(Null)"_s));
    rows.Close();
    return values;
}
