#pragma once

#include <QList>
#include <QString>
#include <array>

#include "registration/StaffItems.h"

/// A line of a master: its code and the name beside it.
struct MasterEntry {
    QString code, name;
};

/// The masters behind the items, by item; empty for an item that has none.
using StaffMasters = std::array<QList<MasterEntry>, kStaffItemCount>;

/// Reads the masters in the order of their codes. One that cannot be read is empty, and the run history has the
/// statement.
StaffMasters LoadStaffMasters();

/// Place of a code in its master, -1 when it is not there. Codes are compared exactly.
int PlaceOfCode(const QList<MasterEntry>& master, const QString& code);
