#pragma once

/// Deletes aged rows of the tables that all programs of the suite share: run history after 6 months, link messages
/// and clipboards after 3 days, a row stamped equal to the limit included. Only the suite's menu program runs it.
/// Throws database::DatabaseError when a table cannot be read.
void PurgeOldData();
