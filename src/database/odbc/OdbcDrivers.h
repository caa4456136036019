#pragma once

#include <QString>
#include <QStringList>

#include "database/DatabaseSession.h"

namespace database {

/// Engines whose drivers need specific connection attributes.
enum class OdbcKind { PostgreSql, MariaDb, SqlServer, Oracle, Other };

/// Kind of a driver, from its name in the driver manager's list, else from the file name of its library. `driver` may
/// also be the path of a library, as many data sources specify it.
OdbcKind KindOfDriver(const QString& driver);

/// Timeout in seconds for a reply of the server, slightly longer than its statement timeout. 0: no timeout.
int AnswerSeconds(const ConnectionRequest& request);

/// The driver manager's connection string for a request:
/// - with a field Initial Catalog, even an empty one: server and database. The Data Source is "server",
///   "server:port" or "server,port"; the provider selects the driver from the table below;
/// - without one the Data Source is a data source name (DSN) of the driver manager, which knows its driver.
///
/// Provider                                   | Drivers, the first installed one is used
/// -------------------------------------------|-----------------------------------------------------------------
/// PostgreSQL, PostgreSQL OLE DB Provider,    | PostgreSQL Unicode
/// PGNP…, PGOLEDB…                            |
/// MariaDB…, MySQL…, OleMySql…                | MariaDB Unicode, MySQL ODBC 8.0 Unicode Driver
/// SQLOLEDB…, SQLNCLI…, MSOLEDBSQL…           | ODBC Driver 18 for SQL Server, ODBC Driver 17 …, FreeTDS
/// OraOLEDB…, MSDAORA…                        | Oracle
/// MSDASQL…                                   | any, by data source name
/// anything else                              | the installed driver of exactly that name
///
/// Throws kProviderNotFound, listing the names tried, if no such driver is installed or the provider is empty;
/// kEngineFailure if the data source does not exist.
QString OdbcConnectionText(const ConnectionRequest& request);

/// Names of the installed drivers.
QStringList InstalledOdbcDrivers();
/// Driver of a data source, whose name ignores case; a null string if there is no such data source.
QString DriverOfDataSource(const QString& name);

/// "name=value;" of a connection string; a value with special characters is enclosed in braces.
QString OdbcField(const QString& name, const QString& value);

}  // namespace database
