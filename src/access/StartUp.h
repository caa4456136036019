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
/// Shows why the program cannot start and ends it. Returns false.
bool RefuseStart(const QString& message);
/// Ends the program: TerminateData, then the process exits immediately. Safe at any time, also before the start has
/// completed.
void LeaveProgram();

/// Writes the first history row of a run, 開始 with the command line, after reading the launching staff code. Quotes
/// are doubled once here, so the stored text equals the command line. All errors are ignored.
void RecordRunStart();

/// Opens the general database and loads the launching staff member. True if both steps completed, even if the staff
/// member is unknown. False if the database cannot be opened: a row DB_OPEN ERROR is recorded, no message shown. Throws
/// database::DatabaseError if the staff member cannot be read.
bool OpenMainConnection();
