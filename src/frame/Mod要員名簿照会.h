#pragma once

/// The program's start, up to the shown main form. Does not return where the start fails: it shows why and ends the
/// process. Afterwards all work happens in events.
void Main();

/// Ends the run in its tables and leaves the process at once.
void LeaveProgram();
