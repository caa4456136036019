#pragma once

#include <QString>
#include <QStringList>

#include "setup/schema/DatabaseFileWriter.h"

namespace setup {

/// Gives the first few people of the sample different rights, so that each right can be tried out once PINs are
/// required. Overwrites the rights, login, office and status already set in `row`; does nothing for the others.
void SetTrialRights(TableWriter& row, int place);

/// The same people as lines for display: code, login, PIN in clear text and rights. Throws database::DatabaseError.
QStringList TrialPeople(const QString& generalFile, const QString& keyFile);

}  // namespace setup
