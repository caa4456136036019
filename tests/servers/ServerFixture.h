#pragma once

#include <gtest/gtest.h>

#include "globals/ProgramGlobals.h"
#include "support/HeadForm.h"
#include "support/SampleInstallation.h"
#include "support/ServerDatabase.h"
#include "support/TestServices.h"

struct ToolOutput;

/// A sample installation whose general database has been copied to a server of its own, by the tool and as its manual
/// says; the configuration connection is open, and the globals stand as at the end of a start.
class OnServer : public ::testing::Test {
  protected:
    explicit OnServer(int staff = 60);

    /// Opens the general connection by the definition row, as a start does. What it gives: False where that failed.
    bool OpenGeneral();
    /// One field of all rows that a search with the present conditions leaves in the store.
    QStringList Search() const;
    QStringList History() const { return installation.HistoryTexts(); }
    QString LastHistory() const { return History().isEmpty() ? QString() : History().last(); }
    /// Ends every connection of the suite to the database, as a server does that is stopped.
    void StopSessions() const;
    /// A column of the definition row, from the next OpenGeneral on.
    void Define(const QString& column, const QString& value) const { installation.SetDefinition(column, value); }

    static bool IsPostgres() { return ServerDatabase::Engine() == QStringLiteral("PostgreSQL"); }

    TestServices services;
    SampleInstallation installation;
    ServerDatabase server;
    HeadForm form;
};

/// An account of the server that may read the tables that are there now, and no more; gone at its end.
class ReadingUser {
  public:
    explicit ReadingUser(const ServerDatabase& server);
    ~ReadingUser();
    ReadingUser(const ReadingUser&) = delete;
    ReadingUser& operator=(const ReadingUser&) = delete;

    const QString& Name() const { return name_; }
    static QString Password() { return QStringLiteral("r"); }
    /// Lets it read the tables that have been made since.
    void Grant() const;

  private:
    const ServerDatabase& server_;
    QString name_;
};

/// The tool on its arguments, without programs beside it.
ToolOutput RunServerTool(const QStringList& arguments);
