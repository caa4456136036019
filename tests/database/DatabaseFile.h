#pragma once

#include <sqlite3.h>

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include "database/Database.h"

/// A database file in a folder of its own, written by the engine's own interface and not by the code under test.
class DatabaseFile {
  public:
    explicit DatabaseFile(const QString& name = QStringLiteral("gnrdb.accdb"));

    QString Path() const { return folder_.filePath(name_); }
    QString ConnectionString() const;
    /// Runs statements on a connection of their own; fails the test on an error.
    void Run(const QString& statements) const;
    /// The first value of a statement's first row.
    QString Value(const QString& statement) const;

  private:
    QTemporaryDir folder_;
    QString name_;
};

/// Another program's connection to the same file.
class OtherProgram {
  public:
    explicit OtherProgram(const QString& path);
    ~OtherProgram() { sqlite3_close_v2(database_); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    /// The engine's result code. Waits for no lock.
    int Run(const char* statement) const;
    sqlite3* Handle() const { return database_; }

  private:
    sqlite3* database_ = nullptr;
};

/// Description of the DatabaseError that `action` raises; empty when it raises none.
template <typename Action>
QString ErrorOf(Action action) {
    try {
        action();
    } catch (const database::DatabaseError& error) {
        return error.Description();
    }
    return {};
}

/// Number of the DatabaseError that `action` raises; 0 when it raises none.
template <typename Action>
long NumberOf(Action action) {
    try {
        action();
    } catch (const database::DatabaseError& error) {
        return error.Number();
    }
    return 0;
}

/// One field of all rows of a statement; a Null is "(Null)".
QStringList Column(database::Connection& connection, const QString& sql, QStringView field);
