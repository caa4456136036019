#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <utility>

#include "support/ServerDatabase.h"

struct sqlite3;

/// A general and a configuration database in a temporary folder: all tables of the suite, classes, eras and a few
/// masters; no staff, which each test inserts. Accessed through the engine's C API, independent of the code under test.
/// When a server is tested, the general database is on it.
class StaffDatabase {
  public:
    /// A row as pairs of column and value; a value without text (QString()) is a Null.
    using Row = QList<std::pair<QString, QString>>;

    StaffDatabase();
    ~StaffDatabase();
    StaffDatabase(const StaffDatabase&) = delete;
    StaffDatabase& operator=(const StaffDatabase&) = delete;

    /// Runs statements; throws std::runtime_error with the engine's message.
    void General(const QString& sql);
    void Configuration(const QString& sql);
    /// Rows of a SELECT on the general database; a Null is "(null)".
    QList<QStringList> GeneralRows(const QString& sql) const;
    /// 摘要 of the history rows, oldest first.
    QStringList History() const;

    void Insert(const QString& table, const Row& row);
    /// Inserts an enrolled staff member with classes 0; `row` overrides columns.
    void AddStaff(const QString& code, const Row& row = {});
    /// Inserts codes from 00001 with names, addresses and dates of several eras, every third one with an entry in the
    /// viewing log of 00001.
    void AddManyStaff(int count);

    /// Opens both connections of Globals().
    void OpenConnections() const;
    QString GeneralPath() const;

  private:
    void MakeServerTables();
    void CopyToServer();

    QTemporaryDir folder_;
    sqlite3* general_ = nullptr;
    sqlite3* configuration_ = nullptr;
    std::unique_ptr<ServerDatabase> server_;
};
