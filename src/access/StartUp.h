#pragma once

#include <QString>

// The start and the end that all programs of the suite share.

/// Clears pointers in ProgramGlobals to destroyed controls, and places new windows over the window that opened them.
void ConnectFormsToGlobals();
/// First step of every program of the suite: names it in ProgramGlobals and in its message boxes, and lets its windows
/// know ProgramGlobals.
void BeginProgram(const QString& programId);
/// Opens the data environment: layout, configuration, history row, start message, general database. False, without
/// a message of its own, when anything in it fails. The start message is sought by the trimmed command line, filled
/// with blanks again to `keyLength` characters where the keys of this program may end in blanks.
bool InitializeData(int keyLength = 0);
/// Answers whoever started this program, writes the last history row, closes the connections. Safe after any failure.
void TerminateData();
