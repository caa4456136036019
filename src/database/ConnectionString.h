#pragma once

#include <QString>

#include "database/DatabaseSession.h"

namespace database {

/// Parses "Provider=...;User ID=...;Password=...;Data Source=...;Initial Catalog=...". Field names ignore case; blanks
/// around names and unquoted values are trimmed; a value may be quoted with '...' or "...", the quote doubled inside;
/// the last ";" is optional; unknown fields are ignored; of duplicate fields the last one counts. Never fails: a
/// missing field is a null string, a field without a value an empty one. Timeouts, mode and text rules of the request
/// keep their defaults.
ConnectionRequest ParseConnectionString(const QString& text);

}  // namespace database
