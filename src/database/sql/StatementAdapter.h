#pragma once

#include <QString>
#include <QStringView>

#include "database/DatabaseTypes.h"
#include "database/sql/SqlDialect.h"

namespace database {

/// Translates a SELECT, INSERT, UPDATE or DELETE from the suite's dialect to that of `engine`. Any other statement, and
/// text that can't be parsed, is returned unchanged; the engine reports errors in it. `rules`: the columns whose text
/// is compared in the suite's way. For servers comments are removed, and DatabaseError kStatementFailure is thrown for
/// a LIKE, an "=" or an ORDER BY over text that can't be translated, since the engine would compare or sort
/// differently.
AdaptedStatement Adapt(QStringView sql, const SqlDialect& engine, const TextRules& rules);
/// As Adapt, for an engine without sortsOnClient; returns the text only.
QString AdaptStatement(QStringView sql, const SqlDialect& engine, const TextRules& rules);

}  // namespace database
