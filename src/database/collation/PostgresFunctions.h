#pragma once

#include <QString>
#include <QStringList>

namespace database {

/// Names of the two functions that the suite adds to a PostgreSQL schema. The first folds a text as FoldedReader does,
/// the second returns a sort key (bytea) in the order of CompareTexts. Both take one text and are IMMUTABLE, so that
/// they can be indexed.
QString PostgresFoldingFunction();
QString PostgresOrderFunction();

/// The CREATE OR REPLACE statement of each function in the order above, for the current schema. Generated from
/// FoldingTable and OrderWeightOf, so that the server and the desktop engine compare alike.
QStringList PostgresTextFunctions();

}  // namespace database
