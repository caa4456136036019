#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

#include "data/Catalogue.h"
#include "globals/EnvironmentDefinition.h"
#include "platform/SealedPins.h"

struct sqlite3;
struct sqlite3_stmt;

namespace setup {

/// Creates one database file of the suite in a single transaction: the file is empty until Commit, and stays so without
/// it. All members throw database::DatabaseError with the engine's message.
class DatabaseFileWriter {
  public:
    /// Creates the file with all tables of that kind of database. The file must not exist.
    DatabaseFileWriter(const QString& path, DatabaseKind store);
    ~DatabaseFileWriter();
    DatabaseFileWriter(const DatabaseFileWriter&) = delete;
    DatabaseFileWriter& operator=(const DatabaseFileWriter&) = delete;

    /// Creates the indexes and commits. Indexing after the inserts is several times faster.
    void Commit();

    /// Makes every TableWriter created from now on encrypt the PINs.
    void SealPinsUnder(const platform::PinKey& key) { pinKey_ = key; }
    const std::optional<platform::PinKey>& KeyOfPins() const { return pinKey_; }

    DatabaseKind kind() const { return store_; }
    void Execute(const QString& sql);
    /// The caller finalises the statement.
    sqlite3_stmt* Prepare(const QString& sql);
    /// Throws the engine's last error.
    [[noreturn]] void Fail() const;

  private:
    sqlite3* database_ = nullptr;
    DatabaseKind store_;
    std::optional<platform::PinKey> pinKey_;
};

/// Adds rows to one table: Set the columns of a row, then Add. Columns not set are Null; PINs are passed in clear text.
/// Throws database::DatabaseError. Must be destroyed before the DatabaseFileWriter.
class TableWriter {
  public:
    TableWriter(DatabaseFileWriter& store, const QString& table);
    ~TableWriter();
    TableWriter(const TableWriter&) = delete;
    TableWriter& operator=(const TableWriter&) = delete;

    /// Sets a column of the next row. The error is kItemNotFound if the catalogue does not list the column.
    TableWriter& Set(const QString& column, const QString& value);
    void Add();
    /// Adds one row per line: values separated by "|", for the columns named in `columns`, separated by blanks.
    void AddLines(const QString& columns, const QStringList& lines);

  private:
    DatabaseFileWriter& store_;
    QString table_;
    QHash<QString, int> parameters_;
    QList<int> pins_;  // parameters to encrypt
    sqlite3_stmt* statement_ = nullptr;
};

/// Settings of a new configuration file.
struct ConfigurationRequest {
    QString generalFile;  ///< absolute path of the general database
    FileKind kind = FileKind::Accdb;
    int installKind = 0;   ///< 0: all users share conf and report; 1: each user has private copies
    bool signedIn = true;  ///< the sample's launching staff member is signed in; otherwise the first start asks
};

/// Creates a configuration file (usrcnfg) with definition row, environment row and menu rows. The file must not exist.
/// Throws database::DatabaseError.
void WriteConfiguration(const QString& path, const ConfigurationRequest& request);

/// Creates a template file with the standard reports and their tables, linked to the report database at the given
/// absolute path. The file must not exist. Throws database::DatabaseError.
void WriteStandardTemplates(const QString& path, const QString& reportDatabase);

}  // namespace setup
