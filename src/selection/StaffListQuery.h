#pragma once

#include <QString>

/// The conditions of a staff list window.
struct StaffListConditions {
    QString code;  ///< five digits; the lowest code to list
    QString kana;
    QString name;
    QString departmentCode, departmentName;
    QString sectionCode, sectionName;
    int enrolmentClass = 0;
    int employeeClass = 0;
    int allEnrolments = 0;  ///< the value of enrolmentClass that means all: MaxValue of 在籍区分
    int allEmployees = 0;   ///< the same for employeeClass and 社員区分
};

/// Which statement the next load of a staff list runs.
enum ListSearch {
    kNegativeSearch = -1,
    kCompositeSearch = 0,
    kCodeSearch = 1,
    kKanaSearch = 2,
    kNameSearch = 3,
    kDepartmentSearch = 4,
    kSectionSearch = 5,
};

// Statements of the staff lists. They also depend on Globals(): dialect of the general database, ListCondition
// (inserted whole, in brackets) and the two offices. Quotes in name and kana are escaped, wildcards are not; codes are
// not escaped, since their items accept digits only. None of them fails.

/// SELECT and FROM for the dialect; without FROM for an unknown dialect.
QString BuildListQueryHead();

// Staff who match the one condition, unless it is blank, and the two classes; ordered by code, kana or name.
QString BuildCodeQuery(const StaffListConditions& conditions);
QString BuildKanaQuery(const StaffListConditions& conditions);
QString BuildNameQuery(const StaffListConditions& conditions);
QString BuildDepartmentQuery(const StaffListConditions& conditions);
QString BuildSectionQuery(const StaffListConditions& conditions);
/// Staff who match every condition that is not blank, and the two classes.
QString BuildCompositeQuery(const StaffListConditions& conditions);
/// Staff who match none of the conditions that are not blank, and neither class unless it means all; for the code that
/// means lower codes.
QString BuildNegativeQuery(const StaffListConditions& conditions);

/// The statement of a ListSearch; empty for any other number.
QString BuildStaffListQuery(int searchKind, const StaffListConditions& conditions);
