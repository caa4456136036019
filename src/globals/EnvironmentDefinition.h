#pragma once

#include <QString>
#include <array>

// The installation, and the definition rows of the configuration database.

/// Format of a desktop database file, by its suffix; None: no file found.
enum class FileKind { None = 0, Accdb = 1, Mdb = 2 };

/// Paths of the installation. Folders have no trailing separator. Each kind is that of the file found in the folders
/// that all users share.
struct InstallationLayout {
    QString RootFolder;
    QString ProgramFolder;
    QString CommonConfFolder;
    QString CommonReportFolder;
    QString ManualFolder;
    QString GeneralDbPath;  ///< not used: the general database is opened by its definition row
    FileKind GeneralDbKind = FileKind::None;
    FileKind ConfigDbKind = FileKind::None;
    FileKind ReportDbKind = FileKind::None;
    // The folders in use: the common ones, or the user's own if InstallKind is 1.
    QString UserConfFolder;
    QString UserReportFolder;
};

/// The row '001' of 動作環境定義. Only the office and the install kind affect these programs.
struct EnvironmentDefinition {
    QString OperatingOfficeCode;
    int InstallKind = 0;  ///< 0: all users share the common folders; 1: each user has private copies
    int ClientUpdateKind = 0;
    QString BackupDate;           ///< yyyymmdd
    QString ConditionSwitchDate;  ///< yyyymmdd
    int BackupMethod = 0;
    int BackupDay = 0;
    std::array<int, 7> WeekdayBackups{};  ///< Monday to Sunday
    QString BackupStartTime;
    QString BackupFolder;
};

/// The row 'GNR' of データベース定義: how to connect to the general database.
struct GeneralDatabaseDefinition {
    QString db;  ///< "S": サーバー名 and データベース名 are used; "A" or "O": データソース名; not trimmed
    QString dbmw;  ///< not used
    QString ドライバ名;
    QString データベース名;
    QString サーバー名;
    QString 接続文字列;  ///< not used: the connection string is always built
    QString ユーザーID;
    QString パスワード;
    QString プロバイダ名;
    QString データソース名;
};
