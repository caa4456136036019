#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "setup/checks/CheckReport.h"
#include "setup/checks/CheckScope.h"

namespace setup {

// The checks of an installation. Each concerns one subject and adds its findings to the report. They write nothing and
// create no file. A check may throw platform::RuntimeError; RunCheck reports that its subject could not be checked.

/// A check of the common files, or of what they contain.
struct CommonCheck {
    QString subject;  ///< for the message that it failed
    void (*run)(const CheckScope& scope, CheckReport& report);
    bool perUser = false;  ///< depends on the rights of the user
};

/// All checks of the common files in the order of the report.
const QList<CommonCheck>& CommonChecks();
/// Runs one piece of a check; an error becomes a finding about `subject`.
void RunCheck(CheckReport& report, const QString& subject, const std::function<void()>& check);

// FileCheck.cpp
void CheckPlace(const CheckScope& scope, CheckReport& report);
/// Databases of both suffixes, of which the programs use one.
void CheckGenerations(const CheckScope& scope, CheckReport& report);
void CheckPrograms(const CheckScope& scope, CheckReport& report);
void CheckModes(const CheckScope& scope, CheckReport& report);
void CheckSpace(const CheckScope& scope, CheckReport& report);
/// A finding if the file system of a folder has little free space; `available` in bytes, negative if unknown.
std::optional<Finding> SpaceFinding(const QString& folder, qint64 available);

// HostCheck.cpp
void CheckHost(const CheckScope& scope, CheckReport& report);
/// Whether the report host would ask the user before it opens the templates in this folder.
void CheckTrust(CheckReport& report, const UserAccess& user, const QString& reportFolder);

// LeftoverCheck.cpp: hidden work folders of a killed suite-setup or report host. They may contain staff data. Only
// folders that the user of this process can read are found.
void CheckLeftovers(const CheckScope& scope, CheckReport& report);

// DatabaseCheck.cpp: files, integrity, and the tables and columns of the catalogue.

/// What a database file means for a clerk and how it is restored.
struct DatabaseSubject {
    QString name;  ///< in messages
    DatabaseKind kind;
    QString effect;          ///< if the file can't be used
    QString tablesEffect;    ///< if it lacks a table or column
    QString remedy;          ///< if the file is missing or can't be used
    QStringList commands{};  ///< same, as commands
};
DatabaseSubject SubjectOf(const CheckScope& scope, DatabaseKind kind);
/// True if the file exists, the user of the scope may read it, and the programs can open it.
bool CheckDatabase(const CheckScope& scope, CheckReport& report, const QString& path, const DatabaseSubject& subject);
/// True if the content of a file that can be opened is intact and no table or column is missing.
bool CheckContent(const CheckScope& scope, CheckReport& report, const QString& path, const DatabaseSubject& subject);
/// Whether the user may write a database and create its journal.
void CheckWritable(const CheckScope& scope, CheckReport& report, const QString& path, const DatabaseSubject& subject);
void CheckConfiguration(const CheckScope& scope, CheckReport& report);
void CheckGeneral(const CheckScope& scope, CheckReport& report);

// DefinitionCheck.cpp: rows of a configuration file.
void CheckDefinition(const CheckScope& scope, CheckReport& report);
void CheckEnvironment(const CheckScope& scope, CheckReport& report);
/// Environment and menu rows of the configuration file of a user, or of the common one.
void CheckConfigurationRows(const CheckScope& scope, CheckReport& report, const QString& configuration);
/// The clock of this machine against the newest row of the history.
void CheckClock(const CheckScope& scope, CheckReport& report, const QString& configuration);
void CheckCommonClock(const CheckScope& scope, CheckReport& report);

// StaffCheck.cpp: rows of the general database.
void CheckCompany(const CheckScope& scope, CheckReport& report);
void CheckClasses(const CheckScope& scope, CheckReport& report);
void CheckStaff(const CheckScope& scope, CheckReport& report);
void CheckPins(const CheckScope& scope, CheckReport& report);

// ReportCheck.cpp
void CheckCommonReports(const CheckScope& scope, CheckReport& report);
/// Work tables, template file, links, templates and output targets of one report folder. `own`: the user prints from
/// these files and must be able to write them. `user`: of a private folder, otherwise empty.
void CheckReports(const CheckScope& scope, CheckReport& report, const QString& workTables, const QString& user,
                  bool own);

}  // namespace setup
