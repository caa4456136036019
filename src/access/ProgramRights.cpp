#include "access/ProgramRights.h"

#include <QStringList>
#include <optional>

#include "access/MasterColumns.h"
#include "data/Recordsets.h"
#include "database/sql/Quoting.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
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

constexpr int kOfficeBoundClass = 3;

/// Rights are inverted: 0 allows. Text that does not start with a number counts as 0.
bool Allows(const QString& right) { return NumericValue(right) == 0; }

bool IsSuiteMenu(const QString& menu) {
    static const QStringList menus = {u"販路推進"_s, u"販路推進データ管理"_s, u"販路推進補助機能"_s,
                                      u"販路推進サービスメニュ"_s};
    return menus.contains(menu);
}

/// Codes are pasted unchanged, here and in the identity's statement: one with a quote must fail and grant nothing.
QString PersonalRuleStatement(const QString& menu, const QString& programId) {
    QString sql =
        u"SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム"
        u" WHERE 担当者別操作許可プログラム.担当者コード = '"_s +
        Globals().Staff.LaunchingStaffCode + u'\'';
    if (IsSuiteMenu(menu)) sql += u" AND 担当者別操作許可プログラム.業務メニュ = '"_s + menu + u'\'';
    return sql + u" AND 担当者別操作許可プログラム.プログラムID = '"_s + programId + u'\'';
}

/// The rule for this person and program. If there is one, its operation rights replace the person's general ones and
/// the program's class is ignored.
std::optional<bool> PersonalRule(const QString& menu, const QString& programId) {
    StaffIdentity& staff = Globals().Staff;
    if (staff.LaunchingStaffCode.isEmpty()) return std::nullopt;
    database::Recordset rule;
    std::optional<bool> result;
    if (OpenRecordset(rule, PersonalRuleStatement(menu, programId))) {
        for (size_t i = 0; i < kOperationRightColumns.size(); ++i)
            staff.OperationRights[i] = rule[kOperationRightColumns[i]].TextOr(QString());
        result = Allows(staff.OperationRights[0]);
    }
    CloseQuietly(rule);
    return result;
}

/// Programs of class 3 belong to a single office: if the company has offices, they are refused for "000" whatever the
/// rights are; without offices they are always allowed.
bool OfficeBoundWorkAllowed() {
    const ProgramGlobals& globals = Globals();
    if (globals.OfficeCount <= 0) return true;
    if (globals.Environment.OperatingOfficeCode == u"000"_s) return false;
    return Allows(globals.Staff.ClassRights[kOfficeBoundClass]);
}

bool ClassAllowed(int workClass) {
    const auto& rights = Globals().Staff.ClassRights;
    if (workClass == kOfficeBoundClass) return OfficeBoundWorkAllowed();
    if (workClass < 0 || workClass >= static_cast<int>(rights.size())) return true;
    return Allows(rights[static_cast<size_t>(workClass)]);
}

/// Checks the right to the program's class, which is stored in the menu's table. A program that is not in its menu is
/// refused.
bool MenuRule(const QString& menu, const QString& programId) {
    database::Recordset row;
    const QString sql = u"SELECT * FROM "_s + menu + u" WHERE プログラムID = "_s + database::TextLiteral(programId);
    const bool allowed =
        OpenConfigRecordset(row, sql) && ClassAllowed(NumericValue(row[u"処理分類"].TextOr(QString())));
    CloseQuietly(row);
    return allowed;
}

bool OperationAllowed(Operation operation) {
    const auto& rights = Globals().Staff.OperationRights;
    const auto index = static_cast<size_t>(operation);
    return index >= rights.size() || Allows(rights[index]);
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
        OpenRecordset(record, u"SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '"_s + code + u"'"_s);
    if (found) TakeIdentity(record);
    record.Close();
    return found;
}

bool EvaluateProgramRights(const QString& menu, const QString& programId, Operation operation) {
    const std::optional<bool> personal = PersonalRule(menu, programId);
    const bool result = personal ? *personal : MenuRule(menu, programId);
    return result && OperationAllowed(operation);
}

bool LoadIdentityAndRights(const QString& menu, const QString& programId, Operation operation) {
    ProgramGlobals& globals = Globals();
    globals.OperatorAuthenticated = false;
    if (!LoadLaunchStaffCode()) return false;
    if (!LoadStaffIdentity(QString(globals.Staff.LaunchingStaffCode))) return false;
    globals.OperatorAuthenticated = EvaluateProgramRights(menu, programId, operation);
    return globals.OperatorAuthenticated;
}

bool CheckProgramPermission(const QString& menu, const QString& programId, Operation operation) {
    LoadIdentityAndRights(menu, programId, operation);
    // Without PINs no user can be identified, so the rights that were just read are not enforced.
    if (Globals().PinRequired != 1) return true;
    if (Globals().OperatorAuthenticated) return true;
    AskForPin(menu + u"/暗証確認"_s);
    return Globals().OperatorAuthenticated && EvaluateProgramRights(menu, programId, operation);
}

void SaveLaunchStaffCode() {
    const QString code = Globals().Staff.LaunchingStaffCode;
    if (TrimBlanks(code).isEmpty()) return;
    if (ExecuteConfigSqlLogged(u"UPDATE 動作環境定義 SET 起動担当者コード = '"_s + code +
                               u"'  WHERE 動作環境定義ID = '001'"_s)) {
        LoadStaffIdentity(code);
        return;
    }
    platform::Services().dialogs->ShowMessage(u"データベースに問題が発生し修正できませんでした。"_s);
}
