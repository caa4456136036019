#pragma once

#include <QList>
#include <QString>
#include <array>

#include "registration/StaffItems.h"

/// An entry of a master table.
struct MasterEntry {
    QString code, name;
};

/// The master entries by item; empty for items without a master.
using StaffMasters = std::array<QList<MasterEntry>, kStaffItemCount>;

/// Reads the masters, ordered by code. A master that cannot be read is empty; the failed statement is in the run
/// history.
StaffMasters LoadStaffMasters();

/// Index of a code in its master, -1 if not found. Codes are compared exactly.
int PlaceOfCode(const QList<MasterEntry>& master, const QString& code);
