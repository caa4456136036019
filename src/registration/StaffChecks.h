#pragma once

#include <QString>
#include <optional>

#include "registration/StaffMasters.h"

/// What stands against saving: the item to go to, and the sentence for the clerk.
struct ValidationError {
    size_t item;
    QString message;
};

/// True for eight digits that name a day of the calendar.
bool IsDate(const QString& text);

/// The first objection in the order of the items. What the clerk has left as it was is not held against him: a
/// retired person keeps the code of a department that is gone.
std::optional<ValidationError> FindObjection(const StaffValues& entered, const StaffValues& before,
                                             const StaffMasters& masters);
