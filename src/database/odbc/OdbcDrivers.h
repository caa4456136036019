#pragma once

#include <QString>
#include <QStringList>

#include "database/DatabaseSession.h"

namespace database {

/// The engines whose drivers are known; each wants a few attributes of its own.
enum class OdbcKind { PostgreSql, MariaDb, SqlServer, Oracle, Other };

/// What a driver is for: by its name in the driver manager's list or, where that tells nothing, by its library's. Also
/// takes the library itself, which is what many data sources name.
OdbcKind KindOfDriver(const QString& driver);

/// How long an answer is waited for, a little longer than a statement may run on the server. 0 where there is no
/// time-out.
int AnswerSeconds(const ConnectionRequest& request);

/// The driver manager's connection string for a request:
/// - with an Initial Catalog, also an empty one, by server and database. The Data Source is "server", "server:port" or
///   "server,port"; the provider picks the driver by the table below;
/// - without one the Data Source is the name of a data source of the driver manager, which knows its driver.
///
/// Provider                                   | Drivers, the first installed one counts
/// -------------------------------------------|-----------------------------------------------------------------
/// PostgreSQL, PostgreSQL OLE DB Provider,    | PostgreSQL Unicode
/// PGNP…, PGOLEDB…                            |
/// MariaDB…, MySQL…, OleMySql…                | MariaDB Unicode, MySQL ODBC 8.0 Unicode Driver
/// SQLOLEDB…, SQLNCLI…, MSOLEDBSQL…           | ODBC Driver 18 for SQL Server, ODBC Driver 17 …, FreeTDS
/// OraOLEDB…, MSDAORA…                        | Oracle
/// MSDASQL…                                   | any, by the name of a data source
/// anything else                              | the installed driver of that very name
///
/// kProviderNotFound, with the names in its text, where no such driver is installed or the provider is empty;
/// kEngineFailure for a data source that is not there.
QString OdbcConnectionText(const ConnectionRequest& request);

/// The drivers that are installed.
QStringList InstalledOdbcDrivers();
/// Driver of a data source, by its name without regard to case; null where there is none of that name.
QString DriverOfDataSource(const QString& name);

/// A field of a connection string: a value with signs that mean something there stands in braces.
QString OdbcField(const QString& name, const QString& value);

}  // namespace database
