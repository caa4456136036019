#pragma once

#include <QList>
#include <QString>
#include <array>
#include <optional>

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
int IndexOfCode(const QList<MasterEntry>& master, const QString& code);

/// Why the input cannot be saved: the item to focus and the message.
struct ValidationError {
    size_t item;  ///< index in kStaffItems
    QString message;
};

/// True for eight digits that form a calendar date.
bool IsDate(const QString& text);

/// The first error of the values in `entered`, in the order of the items; nullopt if they can be saved. Values equal to
/// those in `before` are not checked: a retired person may keep the code of a deleted department.
std::optional<ValidationError> FindValidationError(const StaffValues& entered, const StaffValues& before,
                                                   const StaffMasters& masters);
