#pragma once

#include <QString>

// Start and end procedures shared by the suite's programs. In order: BeginProgram, InitializeData, the program itself,
// LeaveProgram; RefuseStart instead of the program if it cannot start.

/// From now on clears pointers in ProgramGlobals to destroyed controls, and places new windows over the window that
/// opened them (FormObserver). BeginProgram calls it; tests call it alone.
void ConnectFormsToGlobals();
/// Must be called first: sets the program's id, menu and report name and the title of its message boxes, and calls
/// ConnectFormsToGlobals.
void BeginProgram(const QString& programId);
/// Opens the data environment: layout, configuration, history row, start message, general database. False if any step
/// fails; shows no message itself. The start message, at most 60 s old, is matched by the trimmed command line, padded
/// with blanks to `keyLength` UTF-16 units for programs whose keys may end in blanks.
bool InitializeData(int keyLength = 0);
/// Answers the program that started this one, writes the last history row, closes the connections. Safe after any
/// failure.
void TerminateData();
/// Shows why the program cannot start, then LeaveProgram. Returns false where the process goes on, as in tests.
bool RefuseStart(const QString& message);
/// Ends the program: TerminateData, then the process exits immediately with status 0. Safe at any time, also before the
/// start has completed.
void LeaveProgram();

// Steps of InitializeData.

/// Writes the first history row of a run, 開始 with the command line, after reading the launching staff code. Quotes
/// are doubled once here, so the stored text equals the command line. All errors are ignored.
void RecordRunStart();

/// Opens the general database and loads the launching staff member. True even if the staff member is unknown, or if the
/// definition row has an unknown dialect and nothing was opened. False if the database cannot be opened: a row DB_OPEN
/// ERROR is recorded, no message shown. Throws database::DatabaseError if the staff member cannot be read.
bool OpenMainConnection();
