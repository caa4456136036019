#pragma once

#include <QtGlobal>

#include "setup/schema/DatabaseFileWriter.h"

namespace setup {

/// Rows of T閲覧 for about a third of the staff, seen by the launching staff member and some others.
void WriteViewLog(DatabaseFileWriter& store, int count, quint64 seed);

/// Rights of single staff members to single programs, which go before their general rights.
void WritePersonalRights(DatabaseFileWriter& store, int count, quint64 seed);

}  // namespace setup
