#include "setup/schema/DatabaseFileWriter.h"

#include <sqlite3.h>

#include <QFile>

#include "database/sql/Quoting.h"
#include "database/sqlite/SqliteHandle.h"
#include "setup/schema/SchemaUpgrade.h"
#include "setup/storage/PinSealing.h"

using namespace Qt::StringLiterals;

namespace setup {

DatabaseFileWriter::DatabaseFileWriter(const QString& path, DatabaseKind store) : store_(store) {
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    try {
        if (QFile::exists(path)) throw database::DatabaseError(SQLITE_CANTOPEN, path + u" は既にあります。"_s);
        if (sqlite3_open_v2(path.toUtf8().constData(), &database_, flags, nullptr) != SQLITE_OK) Fail();
        Execute(u"PRAGMA journal_mode = DELETE"_s);
        Execute(u"BEGIN IMMEDIATE"_s);
        for (const TableDefinition& table : SuiteTables())
            if (table.store == store) Execute(CreateTableStatement(table));
    } catch (...) {
        sqlite3_close(database_);
        throw;
    }
}

DatabaseFileWriter::~DatabaseFileWriter() { sqlite3_close(database_); }

void DatabaseFileWriter::Commit() {
    for (const TableDefinition& table : SuiteTables()) {
        if (table.store != store_) continue;
        for (int number = 0; number < table.indexes.size(); ++number) Execute(CreateIndexStatement(table, number));
    }
    Execute(u"COMMIT"_s);
}

void DatabaseFileWriter::Execute(const QString& sql) {
    if (sqlite3_exec(database_, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

sqlite3_stmt* DatabaseFileWriter::Prepare(const QString& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK) Fail();
    return statement;
}

void DatabaseFileWriter::Fail() const { throw database::SqliteFailure(database_); }

TableWriter::TableWriter(DatabaseFileWriter& store, const QString& table) : store_(store), table_(table) {
    QStringList names, places;
    for (const ColumnDefinition& column : SuiteTable(store.kind(), table).columns) {
        names.append(column.name);
        places.append(u"?"_s);
        parameters_.insert(column.name, static_cast<int>(names.size()));
    }
    for (const PinColumn& pin : kPinColumns)
        if (store.KeyOfPins() && table == pin.table) pins_.append(parameters_.value(pin.column.toString()));
    statement_ = store.Prepare(u"INSERT INTO "_s + database::QuotedName(table) + u" ("_s +
                               database::QuotedNames(names) + u") VALUES ("_s + places.join(u", "_s) + u')');
}

TableWriter::~TableWriter() { sqlite3_finalize(statement_); }

TableWriter& TableWriter::Set(const QString& column, const QString& value) {
    const int parameter = parameters_.value(column);
    if (parameter == 0)
        throw database::DatabaseError(platform::kItemNotFound,
                                      u"列 %1 はテーブル %2 にありません。"_s.arg(column, table_));
    const bool sealed = pins_.contains(parameter) && !value.isEmpty();
    const QByteArray utf8 = (sealed ? platform::SealPin(value, *store_.KeyOfPins()) : value).toUtf8();
    if (sqlite3_bind_text(statement_, parameter, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT) !=
        SQLITE_OK)
        store_.Fail();
    return *this;
}

void TableWriter::Add() {
    if (sqlite3_step(statement_) != SQLITE_DONE) store_.Fail();
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

void TableWriter::AddLines(const QString& columns, const QStringList& lines) {
    const QStringList names = columns.split(u' ');
    for (const QString& line : lines) {
        const QStringList values = line.split(u'|');
        if (values.size() != names.size())
            throw database::DatabaseError(database::kStatementFailure,
                                          u"テーブル %1 の行 %2 の値の数が列の数と違います。"_s.arg(table_, line));
        for (int i = 0; i < names.size(); ++i) Set(names[i], values[i]);
        Add();
    }
}

}  // namespace setup
