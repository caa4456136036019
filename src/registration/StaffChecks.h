#pragma once

#include <QString>
#include <optional>

#include "registration/StaffMasters.h"

/// Why the input cannot be saved: the item to focus and the message.
struct ValidationError {
    size_t item;
    QString message;
};

/// True for eight digits that form a calendar date.
bool IsDate(const QString& text);

/// The first error in the order of the items. Unchanged values are not checked: a retired person may keep the code of a
/// deleted department.
std::optional<ValidationError> FindObjection(const StaffValues& entered, const StaffValues& before,
                                             const StaffMasters& masters);
