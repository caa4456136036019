#pragma once

#include <QString>
#include <QStringList>

namespace database {

/// Names of the two functions that a schema on PostgreSQL brings along: the folded form of a text, and a key by which
/// texts stand in the order of CompareTexts. Both can be indexed.
QString PostgresFoldingFunction();
QString PostgresOrderFunction();

/// Makes, or makes anew, both functions in the current schema: one statement each. They are written from the tables of
/// TextFolding and TextOrder, so both engines compare alike.
QStringList PostgresTextFunctions();

}  // namespace database
