#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A database file accessed through the engine's C API, independent of the code under test.
class SampleFile {
  public:
    SampleFile() = default;
    explicit SampleFile(const QString& path) : path_(path) {}

    const QString& Path() const { return path_; }
    /// Runs one or more statements; throws std::runtime_error with the engine's message.
    void Execute(const QString& sql) const;
    /// All rows of a SELECT. A Null is a null QString (isNull()), empty text is not.
    QList<QStringList> Rows(const QString& sql) const;
    /// First value of the first row; a null QString without a row.
    QString Value(const QString& sql) const;

  private:
    QString path_;
};

struct SampleOptions {
    int staff = 40;
    bool mdb = false;     ///< files named .mdb instead of .accdb
    int installKind = 0;  ///< 1: private copies per user
};

/// A dedicated installation in a temporary folder, without program files. The first one with the same options is
/// created by suite-setup, later ones in the same process are copies.
class SampleInstallation {
  public:
    explicit SampleInstallation(const SampleOptions& options = {});

    QString Root() const { return root_; }
    QString ProgramFolder() const { return root_ + QStringLiteral("/prgbin"); }
    QString ConfFolder() const { return root_ + QStringLiteral("/conf"); }
    QString ReportFolder() const { return root_ + QStringLiteral("/report"); }
    QString ManualFolder() const { return root_ + QStringLiteral("/manual"); }
    /// users/NAME
    QString UserFolder(const QString& user) const { return root_ + QStringLiteral("/users/") + user; }

    const SampleFile& General() const { return general_; }
    const SampleFile& Configuration() const { return configuration_; }
    const SampleFile& Report() const { return report_; }
    const SampleFile& Forms() const { return forms_; }

    /// A column of the row 'GNR' of データベース定義, Null for a null QString.
    void SetDefinition(const QString& column, const QString& value) const;
    /// A column of the row '001' of 動作環境定義, Null for a null QString.
    void SetEnvironment(const QString& column, const QString& value) const;
    /// Deletes all staff, for tests that insert their own.
    void ClearStaff() const;
    /// Replaces all staff by `count` enrolled ones with codes from 00001.
    void ReplaceStaff(int count) const;
    /// Inserts a row into M担当者: classes 0, an address, all other columns Null unless given.
    void AddStaff(const QString& code, const QHash<QString, QString>& columns = {}) const;
    /// 摘要 of the history rows, oldest first.
    QStringList HistoryTexts() const;

  private:
    QTemporaryDir folder_;
    QString root_;
    SampleFile general_, configuration_, report_, forms_;
};

/// A text as an SQL literal; NULL for a null QString.
QString SqlLiteral(const QString& value);
