#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

/// A dedicated database on one of the servers that `./test --servers` starts, dropped by the destructor. Accessed
/// through the ODBC API, independent of the code under test.
class ServerDatabase {
  public:
    /// The engine under test, "PostgreSQL" or "MariaDB"; empty for desktop files.
    static QString Engine();

    /// Creates an empty database with the functions of the suite's schema.
    ServerDatabase();
    ~ServerDatabase();
    ServerDatabase(const ServerDatabase&) = delete;
    ServerDatabase& operator=(const ServerDatabase&) = delete;

    /// Runs statements separated by ";"; throws std::runtime_error with the engine's message.
    void Run(const QString& statements) const;
    /// Runs one statement without waiting for locks. False if the engine rejects it.
    bool TryOutside(const QString& statement) const;
    /// Rows of a SELECT; a Null is a null QString.
    QList<QStringList> Rows(const QString& sql) const;

    const QString& Name() const { return name_; }
    /// "127.0.0.1:PORT"
    static QString Server();
    static QString User();
    static QString Password();
    /// The driver name for a definition row of the suite.
    static QString Provider();
    /// The connection string that the suite builds for these settings.
    QString ConnectionString() const { return ConnectionString(User(), Password()); }
    QString ConnectionString(const QString& user, const QString& password) const;
    /// The ODBC connection string, as an administrator types it.
    QString OdbcString() const;

  private:
    class Link;
    QString name_;
    std::unique_ptr<Link> link_;
};
