#pragma once

#include <QString>

#include "database/Database.h"

/// Characters that code page 932 cannot encode, written as "?".
struct LostCharacters {
    int characters = 0;  ///< UTF-16 units, one "?" each
    int lines = 0;       ///< lines of the file that contain one
};

/// Writes the field names and all records from the current one on as CSV: code page 932, CR LF, no byte order mark.
/// Values are enclosed in double quotes without escaping: a quote or line break in a value corrupts the line, but the
/// existing readers of these files expect it. Currency is not quoted; it has one blank (or the minus sign) before it
/// and one blank after it, and its Null in the last field is one blank.
///
/// `path` uses the platform's separators; missing folders are created. If the file cannot be opened, shows a message,
/// writes nothing and does not move the recordset. A write error throws platform::RuntimeError and leaves
/// Globals().TextOutputFile open.
LostCharacters WriteRecordsetAsCsv(database::Recordset& recordset, const QString& path);
