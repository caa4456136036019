#include "access/ProgramRights.h"

#include "data/DataFixture.h"

using namespace Qt::StringLiterals;

namespace {
class StaffIdentityOf : public WithConnections {
  protected:
    void SetLauncher(const QString& value) {
        installation.Configuration().Execute(u"UPDATE 動作環境定義 SET 起動担当者コード = "_s + value);
    }
};
}  // namespace

TEST_F(StaffIdentityOf, LaunchingStaffCodeComesFromTheConfigurationUnchanged) {
    SetLauncher(u"' 00007 '"_s);
    EXPECT_TRUE(LoadLaunchStaffCode());
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, u" 00007 "_s);
}

TEST_F(StaffIdentityOf, NoStoredCodeIsNoUser) {
    for (const QString& value : {u"NULL"_s, u"''"_s}) {
        Globals().Staff.LaunchingStaffCode = u"00009"_s;
        SetLauncher(value);
        EXPECT_FALSE(LoadLaunchStaffCode());
        EXPECT_EQ(Globals().Staff.LaunchingStaffCode, QString());
    }
    SetLauncher(u"'   '"_s);
    EXPECT_FALSE(LoadLaunchStaffCode());
    installation.Configuration().Execute(u"DELETE FROM 動作環境定義"_s);
    EXPECT_FALSE(LoadLaunchStaffCode());
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, QString());
}

TEST_F(StaffIdentityOf, AFailedReadOfTheCodeRaises) {
    installation.Configuration().Execute(u"DROP TABLE 動作環境定義"_s);
    EXPECT_THROW(LoadLaunchStaffCode(), database::DatabaseError);
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, QString());
}

TEST_F(StaffIdentityOf, EveryColumnGoesIntoItsField) {
    QString rights;
    for (int i = 0; i < 10; ++i) rights += u", 処理分類%1操作許可 = 'c%1'"_s.arg(i);
    installation.General().Execute(
        u"UPDATE M担当者 SET 氏名 = '佐藤　花子', 事業所コード = '001', 部門コード = '010',"
        u" セクションコード = '020', 役職コード = '03', 社員区分 = '2', ログインID = 'login',"
        u" アクセス権限 = '7', 操作許可 = 'o0', 入力許可 = 'o1', 修正許可 = 'o2', 削除許可 = 'o3',"
        u" 印刷許可 = 'o4', プレビュ許可 = 'o5', テキスト出力許可 = 'o6', イメージ出力許可 = 'o7'"_s +
        rights);
    EXPECT_TRUE(LoadStaffIdentity(u"00001"_s));
    const StaffIdentity& staff = Globals().Staff;
    EXPECT_EQ(staff.LaunchingStaffCode, u"00001"_s);
    EXPECT_EQ(staff.StaffName, u"佐藤　花子"_s);
    EXPECT_EQ(staff.OfficeCode, u"001"_s);
    EXPECT_EQ(staff.DepartmentCode, u"010"_s);
    EXPECT_EQ(staff.SectionCode, u"020"_s);
    EXPECT_EQ(staff.PositionCode, u"03"_s);
    EXPECT_EQ(staff.StaffClass, 2);
    EXPECT_EQ(staff.LoginId, QString());
    EXPECT_EQ(staff.AccessLevel, 7);
    for (size_t i = 0; i < 10; ++i) EXPECT_EQ(staff.ClassRights[i], u"c%1"_s.arg(i));
    for (size_t i = 0; i < 8; ++i) EXPECT_EQ(staff.OperationRights[i], u"o%1"_s.arg(i));
}

TEST_F(StaffIdentityOf, ANullLeavesItsFieldAsItWas) {
    Globals().Staff.OfficeCode = u"009"_s;
    Globals().Staff.StaffClass = 4;
    Globals().Staff.ClassRights[3] = u"1"_s;
    installation.General().Execute(u"UPDATE M担当者 SET 部門コード = ''"_s);
    Globals().Staff.DepartmentCode = u"009"_s;
    EXPECT_TRUE(LoadStaffIdentity(u"00001"_s));
    EXPECT_EQ(Globals().Staff.OfficeCode, u"009"_s);
    EXPECT_EQ(Globals().Staff.StaffClass, 4);
    EXPECT_EQ(Globals().Staff.ClassRights[3], u"1"_s);
    EXPECT_EQ(Globals().Staff.DepartmentCode, QString());
}

TEST_F(StaffIdentityOf, ACodeWithoutARowIsFalseAndChangesNothing) {
    Globals().Staff.StaffName = u"前"_s;
    EXPECT_FALSE(LoadStaffIdentity(u"99999"_s));
    EXPECT_EQ(Globals().Staff.StaffName, u"前"_s);
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(StaffIdentityOf, AFailedReadOfTheStaffMasterRaisesAndLeavesARow) {
    EXPECT_THROW(LoadStaffIdentity(u"0'1"_s), database::DatabaseError);
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().first().endsWith(u"SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = ''0''1''"_s));
}
