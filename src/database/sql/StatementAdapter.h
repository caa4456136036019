#pragma once

#include <QString>
#include <QStringView>

#include "database/DatabaseTypes.h"
#include "database/sql/SqlDialect.h"

namespace database {

/// Rewrites SELECT, INSERT, UPDATE and DELETE, and inside them what the table tells; everything else, also what
/// can't be read, passes character by character and is the engine's to refuse. Where LIKE and orders of text are put
/// into a server's words, comments are left out, and what can't be put so is refused with DatabaseError
/// kStatementFailure: the engine would compare and sort otherwise.
AdaptedStatement Adapt(QStringView sql, const SqlDialect& engine, const TextRules& rules);
/// The same for an engine that makes every order by itself.
QString AdaptStatement(QStringView sql, const SqlDialect& engine, const TextRules& rules);

}  // namespace database
