#pragma once

/// Opens the data environment: layout, configuration, history row, start message, general database. False, without
/// a message of its own, when anything in it fails.
bool InitializeData();
/// Answers whoever started this program, writes the last history row, closes the connections. Safe after any failure.
void TerminateData();
