#pragma once

#include <QString>

#include "support/HeadForm.h"
#include "support/StaffDatabase.h"

/// The program's side of the first list: a full store with eight rows on the screen, launched by one of the staff.
namespace first_list {

constexpr int kMatching = 32'753;
inline const QString kLauncher = QStringLiteral("00001");

/// The staff that the list finds, and some more that have left.
void MakeStaff(StaffDatabase& database);

/// Globals(), the initial conditions and the connections, as a start leaves them.
void PrepareProgram(const StaffDatabase& database, HeadForm& form);

/// Empties the store and fills it by the program's own search.
void Load();

/// False, and says so, when the program or the other side, which has `rows`, has not the whole list.
bool BothAreWhole(int rows);

}  // namespace first_list
