#pragma once

#include <QString>
#include <QStringList>

#include "setup/schema/DatabaseFileWriter.h"

namespace setup {

/// Gives the first few people of the sample rights that differ, so that whoever has the company ask for PINs can see
/// what each right does. Overwrites what the row holds so far; the others' rows stay as they are.
void SetTrialRights(TableWriter& row, int place);

/// The same people as lines to read: code, login, PIN in clear and what they may do. Throws database::DatabaseError.
QStringList TrialPeople(const QString& generalFile, const QString& keyFile);

}  // namespace setup
