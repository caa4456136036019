#pragma once

#include <QString>
#include <QStringList>

#include "database/DatabaseSession.h"

namespace database {

/// Engines whose drivers need specific fields in the connection string.
enum class OdbcKind { PostgreSql, MariaDb, SqlServer, Oracle, Other };

/// Kind of the driver with this name or library path, by words in the name; if there are none, by words in the file
/// name of its library. Throws DatabaseError if the driver manager fails.
OdbcKind KindOfDriver(const QString& driver);

/// Timeout in seconds for a reply of the server: 5 s longer than the request's commandTimeout, so that a working server
/// can report the expiry of its statement timeout first. 0, no timeout, if commandTimeout is not positive.
int AnswerSeconds(const ConnectionRequest& request);

/// The driver manager's connection string for a request:
/// - with a field Initial Catalog, even an empty one: server and database. The Data Source is "server",
///   "server:port" or "server,port"; the provider selects the driver from the table below;
/// - without one the Data Source is a data source name (DSN) of the driver manager, which knows its driver. The
///   provider's driver must be installed as well.
///
/// Provider (ignoring case; … is any text)    | Drivers, the first installed one is used
/// -------------------------------------------|-----------------------------------------------------------------
/// PostgreSQL, PostgreSQL OLE DB Provider…,   | PostgreSQL Unicode
/// PGNP…, PGOLEDB…                            |
/// MariaDB, MySQL, MySQLProv…, OleMySql…      | MariaDB Unicode, MySQL ODBC 8.0 Unicode Driver
/// SQLOLEDB…, SQLNCLI…, MSOLEDBSQL…           | ODBC Driver 18 for SQL Server, ODBC Driver 17 …, FreeTDS
/// OraOLEDB…, MSDAORA…                        | Oracle
/// MSDASQL…                                   | only with a DSN: that of the data source
/// anything else                              | the driver of that name
///
/// Throws kProviderNotFound if the provider is empty or no such driver is installed (the message lists the names
/// tried); kEngineFailure if the data source does not exist.
QString OdbcConnectionText(const ConnectionRequest& request);

/// Names of the installed drivers.
QStringList InstalledOdbcDrivers();
/// Driver of a data source, as its definition specifies it: a driver's name or the path of a library. The name of the
/// data source ignores case; a null string if there is none.
QString DriverOfDataSource(const QString& name);

/// "name=value;" for a connection string; a value with special characters, or blanks at an end, is enclosed in braces.
QString OdbcField(const QString& name, const QString& value);

}  // namespace database
