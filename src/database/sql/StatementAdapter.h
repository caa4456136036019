#pragma once

#include <QString>
#include <QStringView>

#include "database/DatabaseTypes.h"
#include "database/sql/SqlDialect.h"

namespace database {

/// Translates SELECT, INSERT, UPDATE and DELETE from the suite's dialect to the engine's. All other text, including
/// text that can't be parsed, is passed unchanged for the engine to reject. For servers comments are removed, and a
/// LIKE, an "=" or an ORDER BY over text that can't be translated throws DatabaseError kStatementFailure, since the
/// engine would compare or sort differently. `rules`: the columns whose text comparison differs.
AdaptedStatement Adapt(QStringView sql, const SqlDialect& engine, const TextRules& rules);
/// As Adapt, for an engine that sorts itself; returns the text only.
QString AdaptStatement(QStringView sql, const SqlDialect& engine, const TextRules& rules);

}  // namespace database
