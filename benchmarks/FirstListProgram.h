#pragma once

#include <QString>

#include "support/HeadForm.h"
#include "support/StaffDatabase.h"

/// The program's side of the first list: a full row store, eight rows on the screen, started by one of the staff.
namespace first_list {

constexpr int kMatching = 32'753;
inline const QString kLauncher = QStringLiteral("00001");

/// Creates the staff that the list finds, and some that have left.
void MakeStaff(StaffDatabase& database);

/// Sets Globals(), initial conditions and connections as after start-up.
void PrepareProgram(const StaffDatabase& database, HeadForm& form);

/// Resets the row store and fills it with the program's search.
void Load();

/// False, with a message, unless both the program and the baseline, which has `rows`, have the complete list.
bool BothAreWhole(int rows);

}  // namespace first_list
