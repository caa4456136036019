#pragma once

#include <QString>
#include <QtGlobal>

#include "setup/schema/DatabaseFileWriter.h"

namespace setup {

/// Reference date of the sample (yyyymmdd); it does not depend on the current date.
inline constexpr int kReferenceYear = 2026;
inline constexpr const char16_t* kReferenceDay = u"20261001";

/// The staff member who launches the programs of a new installation and has all rights.
inline constexpr const char16_t* kLaunchingStaff = u"00001";

/// Code of the staff member at a 0-based index: 5 digits, consecutive.
QString StaffCode(int place);

struct StaffRequest {
    int count;
    quint64 seed;
    bool trialRights;  ///< the first few have different rights
};

/// Rows of M担当者. The same seed gives the same people; a larger count appends people.
void WriteStaff(DatabaseFileWriter& store, const StaffRequest& request);

}  // namespace setup
