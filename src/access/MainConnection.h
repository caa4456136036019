#pragma once

/// Opens the general database and loads the launching staff member. True if both steps completed, even if the staff
/// member is unknown. False if the database cannot be opened: a row DB_OPEN ERROR is recorded, no message shown. Throws
/// database::DatabaseError if the staff member cannot be read.
bool OpenMainConnection();
