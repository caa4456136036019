#pragma once

#include <QString>

/// The conditions of a staff list window.
struct StaffListConditions {
    QString code;  ///< as formatted, five digits
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

// Statements of the staff lists. Beside the conditions they read Globals(): the dialect of the general database,
// ListCondition, which goes in whole and in brackets, and the two offices. Name and kana are quoted, wildcards in them
// stay wildcards; codes go in as they stand, since their items take digits only.

/// Beginning of all of them, up to the joins, by the dialect. For a dialect that is none there is no FROM.
QString BuildListQueryHead();

QString BuildCodeQuery(const StaffListConditions& conditions);
QString BuildKanaQuery(const StaffListConditions& conditions);
QString BuildNameQuery(const StaffListConditions& conditions);
QString BuildDepartmentQuery(const StaffListConditions& conditions);
QString BuildSectionQuery(const StaffListConditions& conditions);
/// Staff who meet every condition that is filled.
QString BuildCompositeQuery(const StaffListConditions& conditions);
/// Staff who differ in every condition that is filled; of the code that means codes below it.
QString BuildNegativeQuery(const StaffListConditions& conditions);

/// The statement of a search; empty for a kind that is none.
QString BuildStaffListQuery(int searchKind, const StaffListConditions& conditions);
