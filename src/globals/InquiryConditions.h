#pragma once

#include <QString>

/// What the head of the main form narrows the staff list by. The record counts, not the controls: they are
/// written from it. Codes are fixed-width digits, an empty bound is a bound; texts stand as typed.
struct InquiryConditions {
    QString DepartmentFrom, DepartmentTo;
    QString SectionFrom, SectionTo;
    QString PositionFrom, PositionTo;
    QString StaffFrom, StaffTo;
    QString SearchName, SearchKana, SearchPhone, SearchZip, SearchAddress;
    int EnrolmentKind = 0;  ///< 区分; at or above the MaxValue of 在籍区分 it means all
    int StaffClass = 0;     ///< 区分; at or above the MaxValue of 社員区分 it means all
    int DisplayOrder = 0;   ///< 0 to 4, any other value sorts by nothing
};

/// True while the selection window of that name holds a selection, which then replaces the head's item.
struct ConditionFlags {
    bool NameListGiven = false;
    bool KanaListGiven = false;
    bool AddressListGiven = false;
    bool PhoneListGiven = false;
    bool ZipListGiven = false;
    bool DepartmentPicked = false;
    bool SectionPicked = false;
    bool PositionPicked = false;
    bool StaffPicked = false;
};
