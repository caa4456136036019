#pragma once

/// Writes the first history row of a run, 開始 with the command line, after reading the launching staff code. Quotes
/// are doubled once here, so the stored text equals the command line. All errors are ignored.
void RecordRunStart();
