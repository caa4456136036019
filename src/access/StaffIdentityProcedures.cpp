#include "access/StaffIdentityProcedures.h"

#include "access/MasterColumns.h"
#include "access/RightColumns.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

constexpr MasterColumn<StaffIdentity> kColumns[] = {
    {u"コード", &StaffIdentity::LaunchingStaffCode},    {u"氏名", &StaffIdentity::StaffName},
    {u"事業所コード", &StaffIdentity::OfficeCode},      {u"部門コード", &StaffIdentity::DepartmentCode},
    {u"セクションコード", &StaffIdentity::SectionCode}, {u"役職コード", &StaffIdentity::PositionCode},
    {u"社員区分", &StaffIdentity::StaffClass},          {u"アクセス権限", &StaffIdentity::AccessLevel},
};

void TakeIdentity(const database::Recordset& record) {
    StaffIdentity& staff = Globals().Staff;
    TakeColumns<StaffIdentity>(record, kColumns, staff);
    for (size_t i = 0; i < staff.ClassRights.size(); ++i) TakeText(record[kClassRightColumns[i]], staff.ClassRights[i]);
    for (size_t i = 0; i < kOperationRightColumns.size(); ++i)
        TakeText(record[kOperationRightColumns[i]], staff.OperationRights[i]);
}

}  // namespace

bool LoadLaunchStaffCode() {
    QString& code = Globals().Staff.LaunchingStaffCode;
    code.clear();
    database::Recordset record;
    if (OpenConfigRecordset(record, u"SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'"_s))
        TakeText(record[u"起動担当者コード"], code);
    record.Close();
    return !TrimBlanks(code).isEmpty();
}

bool LoadStaffIdentity(const QString& code) {
    database::Recordset record;
    const bool found =
        OpenRecordset(record, u"SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '"_s + code + u"'"_s, false);
    if (found) TakeIdentity(record);
    record.Close();
    return found;
}
