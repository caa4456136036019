#pragma once

#include <QString>

/// The conditions of the head of the main form. This record is authoritative; the controls are painted from it. Codes
/// are fixed-width digits, an empty bound counts as a bound; texts are stored as typed.
struct InquiryConditions {
    QString DepartmentFrom, DepartmentTo;
    QString SectionFrom, SectionTo;
    QString PositionFrom, PositionTo;
    QString StaffFrom, StaffTo;
    QString SearchName, SearchKana, SearchPhone, SearchZip, SearchAddress;
    int EnrolmentKind = 0;  ///< >= MaxValue of 在籍区分 means all
    int StaffClass = 0;     ///< >= MaxValue of 社員区分 means all
    int DisplayOrder = 0;   ///< 0 to 4; any other value gives no ORDER BY
};

/// True while the selection window of that name contains a selection, which then replaces the head's item.
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
