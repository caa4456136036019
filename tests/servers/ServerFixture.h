#pragma once

#include <gtest/gtest.h>

#include "globals/ProgramGlobals.h"
#include "selection/StaffListQuery.h"
#include "support/HeadForm.h"
#include "support/SampleInstallation.h"
#include "support/ServerDatabase.h"
#include "support/TestServices.h"

struct ToolOutput;

/// A sample installation whose general database has been copied to a new server database with the tool, as described in
/// its manual. The configuration connection is open, and the globals are as after start-up.
class OnServer : public ::testing::Test {
  protected:
    explicit OnServer(int staff = 60);

    /// Opens the general connection from its definition row, as at start-up. False if that fails.
    bool OpenGeneral();
    /// One field of all rows in the row store after a search with the current conditions.
    QStringList Search() const;
    QStringList History() const { return installation.HistoryTexts(); }
    QString LastHistory() const { return History().isEmpty() ? QString() : History().last(); }
    /// Closes all connections of the suite to the database on the server side, as a server shutdown does.
    void StopSessions() const;
    /// Sets a column of the definition row; used from the next OpenGeneral on.
    void Define(const QString& column, const QString& value) const { installation.SetDefinition(column, value); }

    static bool IsPostgres() { return ServerDatabase::Engine() == QStringLiteral("PostgreSQL"); }

    TestServices services;
    SampleInstallation installation;
    ServerDatabase server;
    HeadForm form;
};

/// A server account with read permission on the existing tables only; dropped by the destructor.
class ReadingUser {
  public:
    explicit ReadingUser(const ServerDatabase& server);
    ~ReadingUser();
    ReadingUser(const ReadingUser&) = delete;
    ReadingUser& operator=(const ReadingUser&) = delete;

    const QString& Name() const { return name_; }
    static QString Password() { return QStringLiteral("r"); }
    /// Grants read permission on tables created since.
    void Grant() const;

  private:
    const ServerDatabase& server_;
    QString name_;
};

/// Conditions of the staff lists with a value for each kind of search.
StaffListConditions EveryListCondition();

/// Runs the tool in this process, with no other programs of the suite running.
ToolOutput RunServerTool(const QStringList& arguments);
