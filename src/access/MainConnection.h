#pragma once

/// Opens the general database and loads the launching staff member. True when the staff step has run to its end,
/// with or without anybody known. False after a refused opening, which leaves a row DB_OPEN ERROR in the history and
/// shows nothing. A failed read of the staff step throws database::DatabaseError.
bool OpenMainConnection();
