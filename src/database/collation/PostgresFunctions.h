#pragma once

#include <QString>
#include <QStringList>

namespace database {

/// Names of the two functions that the suite adds to a PostgreSQL schema: one folds a text, the other returns a sort
/// key in the order of CompareTexts. Both are immutable, so that they can be indexed.
QString PostgresFoldingFunction();
QString PostgresOrderFunction();

/// One CREATE OR REPLACE statement per function, for the current schema. Generated from the tables of TextFolding and
/// TextOrder, so that the server and the desktop engine compare alike.
QStringList PostgresTextFunctions();

}  // namespace database
