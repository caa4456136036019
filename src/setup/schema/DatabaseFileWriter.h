#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

#include "data/Catalogue.h"
#include "platform/SealedPins.h"

struct sqlite3;
struct sqlite3_stmt;

namespace setup {

/// Makes one database file of the suite. Everything lies in one transaction, so the file holds nothing before
/// Commit. All members throw database::DatabaseError with the engine's words.
class DatabaseFileWriter {
  public:
    /// Creates the file with all tables of the store. The file must not exist.
    DatabaseFileWriter(const QString& path, DatabaseKind store);
    ~DatabaseFileWriter();
    DatabaseFileWriter(const DatabaseFileWriter&) = delete;
    DatabaseFileWriter& operator=(const DatabaseFileWriter&) = delete;

    /// Indexes are made here, after the rows, which is several times faster than keeping them up row by row.
    void Commit();

    /// From now on PINs are stored sealed under this key. Before the first TableWriter.
    void SealPinsUnder(const platform::PinKey& key) { pinKey_ = key; }
    const std::optional<platform::PinKey>& KeyOfPins() const { return pinKey_; }

    DatabaseKind kind() const { return store_; }
    void Execute(const QString& sql);
    sqlite3_stmt* Prepare(const QString& sql);
    [[noreturn]] void Fail() const;

  private:
    sqlite3* database_ = nullptr;
    DatabaseKind store_;
    std::optional<platform::PinKey> pinKey_;
};

/// Adds rows to one table. A column that is not set for a row is Null in it; PINs are given in clear.
class TableWriter {
  public:
    TableWriter(DatabaseFileWriter& store, const QString& table);
    ~TableWriter();
    TableWriter(const TableWriter&) = delete;
    TableWriter& operator=(const TableWriter&) = delete;

    /// kItemNotFound for a column that the catalogue does not give the table.
    TableWriter& Set(const QString& column, const QString& value);
    void Add();
    /// One row a line, values apart by "|", for the columns named, which are apart by blanks.
    void AddLines(const QString& columns, const QStringList& lines);

  private:
    DatabaseFileWriter& store_;
    QString table_;
    QHash<QString, int> parameters_;
    QList<int> pins_;  // parameters that are sealed
    sqlite3_stmt* statement_ = nullptr;
};

}  // namespace setup
