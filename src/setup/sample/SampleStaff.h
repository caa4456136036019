#pragma once

#include <QString>
#include <QtGlobal>

#include "setup/schema/DatabaseFileWriter.h"

namespace setup {

/// Nothing in the sample depends on the day it is made: it shows the company as of this one (yyyymmdd).
inline constexpr int kReferenceYear = 2026;
inline constexpr const char16_t* kReferenceDay = u"20261001";

/// The staff member who starts the programs of a fresh installation and may do everything.
inline constexpr const char16_t* kLaunchingStaff = u"00001";

/// Code of the staff member at a place counted from 0: 5 digits, without gaps.
QString StaffCode(int place);

struct StaffRequest {
    int count;
    quint64 seed;
    bool trialRights;  ///< the first few have rights that differ
};

/// Rows of M担当者. The same seed gives the same people; a larger count adds people at the end.
void WriteStaff(DatabaseFileWriter& store, const StaffRequest& request);

}  // namespace setup
