#pragma once

#include <sqlite3.h>

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include "database/Database.h"

/// A database file in a temporary folder, written directly with SQLite and not by the code under test.
class DatabaseFile {
  public:
    explicit DatabaseFile(const QString& name = QStringLiteral("gnrdb.accdb"));

    QString Path() const { return folder_.filePath(name_); }
    QString ConnectionString() const;
    /// Runs statements on a separate connection; an error fails the test.
    void Run(const QString& statements) const;
    /// First column of the first row of a query.
    QString Value(const QString& statement) const;

  private:
    QTemporaryDir folder_;
    QString name_;
};

/// A connection of another program to the same file.
class OtherProgram {
  public:
    explicit OtherProgram(const QString& path);
    ~OtherProgram() { sqlite3_close_v2(database_); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    /// Returns SQLite's result code. Does not wait for locks.
    int Run(const char* statement) const;
    sqlite3* Handle() const { return database_; }

  private:
    sqlite3* database_ = nullptr;
};

/// Description of the DatabaseError that `action` throws; empty if it throws none.
template <typename Action>
QString ErrorOf(Action action) {
    try {
        action();
    } catch (const database::DatabaseError& error) {
        return error.Description();
    }
    return {};
}

/// Number of the DatabaseError that `action` throws; 0 if it throws none.
template <typename Action>
long NumberOf(Action action) {
    try {
        action();
    } catch (const database::DatabaseError& error) {
        return error.Number();
    }
    return 0;
}

/// One field of all rows of a query; a Null is "(Null)".
QStringList Column(database::Connection& connection, const QString& sql, QStringView field);
