#pragma once

/// Deletes aged rows of the tables shared by all programs of the suite: run history after 6 months, link messages and
/// clipboards after 3 days, rows exactly at the limit included. Only the suite's menu program calls it. Throws
/// database::DatabaseError if a table cannot be read.
void PurgeOldData();
