#pragma once

#include <QString>

#include "database/Database.h"

/// Characters that have no form in code page 932 and were written as "?".
struct LostCharacters {
    int characters = 0;  ///< UTF-16 units: as many as there are "?"
    int lines = 0;       ///< lines of the file that hold one
};

/// Writes the field names and all records from the current one on as comma-separated text: code page 932, lines ended
/// by CR LF, no mark at the beginning. Values stand between double quotes as they are, without any escaping; a quote or
/// a line break inside breaks the form, and that is how the readers of these files know them. Currency stands without
/// quotes, one blank (or the minus sign) in front and one behind, and a Null of it in the last field is one blank.
///
/// Missing folders are made. A file that can't be opened is told in a message box; nothing is written then, and the
/// recordset stays where it is. A failure while writing rises as platform::RuntimeError and leaves
/// Globals().TextOutputFile open.
LostCharacters WriteRecordsetAsCsv(database::Recordset& recordset, const QString& path);
