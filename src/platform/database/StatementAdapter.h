#pragma once

#include <QString>
#include <QStringView>

#include "platform/DatabaseTypes.h"

namespace platform {

/// Where an engine's way of writing differs from the suite's statements.
struct EngineDifferences {
    bool topIsLimit;             ///< "SELECT TOP n ..." is written "SELECT ... LIMIT n"
    bool rightJoinsAreSlow;      ///< nested RIGHT JOINs become a chain of LEFT JOINs
    bool bracketsAreQuotes;      ///< [name] is written "name"
    size_t longestChain;         ///< terms of one OR or AND chain that the engine takes without trouble
    QString textCollation;       ///< behind ORDER BY on the columns sorted as text; empty: the engine sorts them so
    QString caseBlindCollation;  ///< behind a column of an "=" that ignores case
};

/// Rewrites SELECT, INSERT, UPDATE and DELETE, and inside them what the table tells; everything else, also what
/// can't be read, passes character by character and is the engine's to refuse.
QString AdaptStatement(QStringView sql, const EngineDifferences& engine, const TextRules& rules);

}  // namespace platform
