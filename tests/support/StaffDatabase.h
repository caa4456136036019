#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <utility>

#include "support/ServerDatabase.h"

struct sqlite3;

/// A general and a configuration database in a temporary folder: all tables of the suite, the classes, eras and a
/// few masters, and no staff. Staff rows are what a test is about, so it writes its own. Worked through the engine's
/// C API, past everything that a test may want to try. Where the run is to test a server, the general database lies
/// there.
class StaffDatabase {
  public:
    /// A row as pairs of column and value; a value without text (QString()) is a Null.
    using Row = QList<std::pair<QString, QString>>;

    StaffDatabase();
    ~StaffDatabase();
    StaffDatabase(const StaffDatabase&) = delete;
    StaffDatabase& operator=(const StaffDatabase&) = delete;

    /// Runs statements; throws std::runtime_error with the engine's words.
    void General(const QString& sql);
    void Configuration(const QString& sql);
    /// Rows of a SELECT on the general database; a Null is "(null)".
    QList<QStringList> GeneralRows(const QString& sql) const;
    /// 摘要 of the history rows in the order of their writing.
    QStringList History() const;

    void Insert(const QString& table, const Row& row);
    /// A staff member on the payroll with classes 0, over whatever `row` gives.
    void AddStaff(const QString& code, const Row& row = {});
    /// Codes 00001 and up; everybody has names, addresses and dates of several eras, every third an entry in the
    /// viewing log of 00001.
    void AddManyStaff(int count);

    /// Opens both connections of Globals() as a start does.
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
