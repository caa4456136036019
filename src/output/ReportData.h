#pragma once

/// Empties the list's work table and fills it with the rows ticked for output, in their order, the text of the
/// conditions on each. The report database is open. True when the table then holds a row. Traps nothing: a column that
/// the table lacks, a record that can't be added rise as database::DatabaseError, and what was added before stays.
bool BuildReportData();
