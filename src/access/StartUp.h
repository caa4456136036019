#pragma once

#include <QString>

// Start and end procedures shared by all programs of the suite.

/// Clears pointers in ProgramGlobals to destroyed controls, and places new windows over the window that opened them.
void ConnectFormsToGlobals();
/// Must be called first: sets the program's id and the title of its message boxes, and connects forms to
/// ProgramGlobals.
void BeginProgram(const QString& programId);
/// Opens the data environment: layout, configuration, history row, start message, general database. False if any step
/// fails; shows no message itself. The start message is matched by the trimmed command line, padded with blanks to
/// `keyLength` characters for programs whose keys may end in blanks.
bool InitializeData(int keyLength = 0);
/// Answers the program that started this one, writes the last history row, closes the connections. Safe after any
/// failure.
void TerminateData();
