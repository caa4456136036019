#pragma once

#include <QtGlobal>

#include "setup/schema/DatabaseFileWriter.h"

namespace setup {

/// Rows of T閲覧 for about a third of the staff, viewed by the launching staff member and a few others.
void WriteViewLog(DatabaseFileWriter& store, int count, quint64 seed);

/// Per-program rights of single staff members; they override the general rights.
void WritePersonalRights(DatabaseFileWriter& store, int count, quint64 seed);

}  // namespace setup
