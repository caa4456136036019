#include "database/OwnDrivers.h"

#include <QTemporaryDir>

#include "support/FileBytes.h"

using namespace Qt::StringLiterals;

OwnDrivers::OwnDrivers() : system_(qgetenv("ODBCSYSINI")), user_(qgetenv("ODBCINI")) {
    static const QTemporaryDir folder;
    QByteArray drivers;
    for (const char* name : {"PostgreSQL Unicode", "MariaDB Unicode", "FreeTDS", "Site Driver"})
        drivers += "[" + QByteArray(name) + "]\nDriver = /nowhere/none.so\n";
    drivers += "[House Driver]\nDescription = MariaDB\nDriver = /opt/libpsqlodbcw.so\nUsageCount = 1\n";
    drivers += "[Plain Driver]\nDriver = " TEST_PROGRAMS "/fake-odbc-driver.so\n";
    WriteBytes(folder.filePath(u"odbcinst.ini"_s), drivers);
    WriteBytes(folder.filePath(u"odbc.ini"_s),
               "[staff]\nDriver = PostgreSQL Unicode\n[house]\nDriver = House Driver\n[plain]\nDriver = Plain Driver\n"
               "[library]\nDescription = PostgreSQL\nDriver = /usr/lib/odbc/libmaodbc.so\n");
    qputenv("ODBCSYSINI", folder.path().toUtf8());
    qputenv("ODBCINI", folder.filePath(u"odbc.ini"_s).toUtf8());
}

OwnDrivers::~OwnDrivers() {
    system_.isNull() ? qunsetenv("ODBCSYSINI") : qputenv("ODBCSYSINI", system_);
    user_.isNull() ? qunsetenv("ODBCINI") : qputenv("ODBCINI", user_);
}
