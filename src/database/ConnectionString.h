#pragma once

#include <QString>

#include "database/DatabaseSession.h"

namespace database {

/// Takes "Provider=...;User ID=...;Password=...;Data Source=...;Initial Catalog=..." apart. Field names are found
/// without case, blanks around names and unquoted values don't count, a value may stand in '...' or "..." with the
/// quote doubled inside, the last ";" may be missing, unknown fields are ignored, of equal fields the last counts.
/// Time-outs, mode and rules of the request stay at their defaults. Never fails: what is missing stays null, and what
/// is there without a value becomes empty.
ConnectionRequest ParseConnectionString(const QString& text);

}  // namespace database
