#include "FirstListProgram.h"

#include <cstdio>

#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/StaffQuery.h"

using namespace Qt::StringLiterals;

namespace first_list {

void MakeStaff(StaffDatabase& database) {
    constexpr int kHaveLeft = 1'247;
    database.AddManyStaff(kMatching + kHaveLeft);
    database.General(u"UPDATE M担当者 SET 在籍区分 = '1' WHERE コード > '"_s + QString::number(kMatching) + u'\'');
}

void PrepareProgram(const StaffDatabase& database, HeadForm& form) {
    Globals().MainForm = &form;
    Globals().RowsPerPage = 8;
    Globals().ScopeOfficeCode = u"000"_s;
    Globals().ProgramId = u"要員名簿照会"_s;
    Globals().Staff.LaunchingStaffCode = kLauncher;
    SetInitialConditions();
    database.OpenConnections();
}

void Load() {
    ResetRowStore();
    RunStaffSearch();
}

bool BothAreWhole(int rows) {
    const int ours = Globals().LastRow + 1;
    if (ours == kMatching && rows == kMatching) return true;
    std::fprintf(stderr, "the two lists differ: %d and %d rows\n", ours, rows);
    return false;
}

}  // namespace first_list
