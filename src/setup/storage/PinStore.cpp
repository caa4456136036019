// Part of PinSealing.h: PinStore for files and servers.
#include "data/Catalogue.h"
#include "database/DatabaseSession.h"
#include "database/sql/Quoting.h"
#include "database/sqlite/SqliteQuery.h"
#include "setup/storage/PinSealing.h"

using namespace Qt::StringLiterals;
using database::QuotedName;
using database::SqliteStatement;

namespace setup {

namespace {

class FilePinStore : public PinStore {
  public:
    explicit FilePinStore(const QString& file)
        : database_(database::OpenSqliteFile(file, database::ConnectMode::ReadWrite)) {}

    void Begin() override {
        // Otherwise the clear text would remain readable in free pages of the file.
        database::RunSql(database_.get(), u"PRAGMA secure_delete = ON"_s);
        database::RunSql(database_.get(), u"BEGIN IMMEDIATE"_s);
    }
    QList<StoredPin> Pins(const PinColumn& place) override {
        const SqliteStatement rows = database::PrepareSql(
            database_.get(),
            u"SELECT rowid, %1 FROM %2 WHERE %1 <> ''"_s.arg(QuotedName(place.column), QuotedName(place.table)));
        QList<StoredPin> pins;
        while (database::NextRow(rows.get()))
            pins.append({{database::ColumnText(rows.get(), 0)}, database::ColumnText(rows.get(), 1)});
        return pins;
    }
    void Replace(const PinColumn& place, const StoredPin& pin, const QString& text) override {
        const SqliteStatement update = database::PrepareSql(
            database_.get(),
            u"UPDATE %1 SET %2 = ? WHERE rowid = ?"_s.arg(QuotedName(place.table), QuotedName(place.column)), {text});
        sqlite3_bind_int64(update.get(), 2, pin.row.first().toLongLong());
        database::NextRow(update.get());
    }
    void Commit() override { database::RunSql(database_.get(), u"COMMIT"_s); }
    bool StillLocked() const override { return sqlite3_get_autocommit(database_.get()) == 0; }

  private:
    database::SqliteDatabase database_;
};

QString Equals(QStringView name, const QString& value) {
    return QuotedName(name) + (value.isNull() ? u" IS NULL"_s : u" = "_s + database::TextLiteral(value));
}

/// Concurrent runs block on the first row with a PIN.
class ServerPinStore : public PinStore {
  public:
    explicit ServerPinStore(database::Connection connection) : connection_(std::move(connection)) {}

    void Begin() override {
        whole_ = std::make_unique<database::Transaction>(connection_);
        for (const PinColumn& place : kPinColumns) Pins(place);
    }
    QList<StoredPin> Pins(const PinColumn& place) override {
        const QString engine = connection_.Session().EngineName();
        const bool locks = engine.startsWith(u"PostgreSQL"_s) || engine.startsWith(u"M"_s);
        return ReadPins(connection_, place, locks ? u" FOR UPDATE"_s : QString());
    }
    void Replace(const PinColumn& place, const StoredPin& pin, const QString& text) override {
        QString where = Equals(place.column, pin.text);
        const QStringList& key = SuiteTable(DatabaseKind::General, place.table.toString()).key;
        for (qsizetype i = 0; i < key.size(); ++i) where += u" AND "_s + Equals(key[i], pin.row[i]);
        connection_.Execute(u"UPDATE %1 SET %2 = %3 WHERE "_s.arg(QuotedName(place.table), QuotedName(place.column),
                                                                  database::TextLiteral(text)) +
                            where);
    }
    void Commit() override { whole_->Commit(); }
    /// A lost connection has released its locks.
    bool StillLocked() const override { return false; }

  private:
    database::Connection connection_;
    std::unique_ptr<database::Transaction> whole_;
};

}  // namespace

std::unique_ptr<PinStore> OpenFilePins(const QString& file) { return std::make_unique<FilePinStore>(file); }

std::unique_ptr<PinStore> MakeServerPins(database::Connection connection) {
    return std::make_unique<ServerPinStore>(std::move(connection));
}

QList<StoredPin> ReadPins(database::Connection& connection, const PinColumn& place, const QString& suffix) {
    const QStringList key = SuiteTable(DatabaseKind::General, place.table.toString()).key;
    database::Recordset rows;
    QList<StoredPin> pins;
    for (rows.Open(u"SELECT %1 FROM %2 WHERE %3 <> ''"_s.arg(
                       database::QuotedNames(key + QStringList{place.column.toString()}), QuotedName(place.table),
                       QuotedName(place.column)) +
                       suffix,
                   connection);
         !rows.AtEOF(); rows.MoveNext()) {
        StoredPin pin;
        for (int i = 0; i < key.size(); ++i) pin.row.append(rows.FieldAt(i).TextOr(QString()));
        pin.text = rows.FieldAt(static_cast<int>(key.size())).Text();
        pins.append(pin);
    }
    return pins;
}

}  // namespace setup
