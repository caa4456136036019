#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

/// A database of its own on one of the private servers that `./test --servers` starts; dropped at its end. Worked by
/// the driver manager's own interface, past the code under test.
class ServerDatabase {
  public:
    /// The engine that this run tests, "PostgreSQL" or "MariaDB"; empty where it is the desktop files.
    static QString Engine();

    /// Empty, with the functions that a schema of the suite brings along.
    ServerDatabase();
    ~ServerDatabase();
    ServerDatabase(const ServerDatabase&) = delete;
    ServerDatabase& operator=(const ServerDatabase&) = delete;

    /// Runs statements apart by ";"; throws std::runtime_error with the engine's words.
    void Run(const QString& statements) const;
    /// One statement that waits for no lock. False when the engine refuses it.
    bool TryOutside(const QString& statement) const;
    /// Rows of a SELECT; a Null is a null QString.
    QList<QStringList> Rows(const QString& sql) const;

    const QString& Name() const { return name_; }
    /// "127.0.0.1:PORT"
    static QString Server();
    static QString User();
    static QString Password();
    /// As a definition row of the suite names the driver.
    static QString Provider();
    /// What the suite builds for a server with these settings.
    QString ConnectionString() const { return ConnectionString(User(), Password()); }
    QString ConnectionString(const QString& user, const QString& password) const;
    /// The driver manager's own string, as an administrator types it.
    QString OdbcString() const;

  private:
    class Link;
    QString name_;
    std::unique_ptr<Link> link_;
};
