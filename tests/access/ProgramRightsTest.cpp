#include "access/ProgramRights.h"

#include "access/PinDialogDriver.h"
#include "access/RightsFixture.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kAllForbidden(8, u"1"_s);

class Rights : public WithRights {
  protected:
    void ForbidEverything() const {
        QString columns;
        for (int i = 0; i < 10; ++i) columns += u", 処理分類%1操作許可 = '1'"_s.arg(i);
        SetStaff(
            u"操作許可 = '1', 入力許可 = '1', 修正許可 = '1', 削除許可 = '1', 印刷許可 = '1', プレビュ許可 = '1',"
            u" テキスト出力許可 = '1', イメージ出力許可 = '1'"_s +
            columns);
    }
};

}  // namespace

TEST_F(Rights, WithoutPinsEverythingIsAllowedThoughTheReadsStillHappen) {
    ForbidEverything();
    SetStaff(u"氏名 = '新しい名'"_s);
    PinDialogDriver driver([](PinDialogDriver& user) { user.Click(u"btn_キャンセル"_s); });
    for (const int required : {0, 2}) {
        Globals().PinRequired = required;
        Globals().OperatorAuthenticated = true;
        Globals().Staff.StaffName.clear();
        for (int operation = 0; operation < 8; ++operation) EXPECT_TRUE(Check(operation)) << operation;
        EXPECT_FALSE(Globals().OperatorAuthenticated);
        EXPECT_EQ(Globals().Staff.StaffName, u"新しい名"_s);
    }
}

TEST_F(Rights, WithoutPinsNoKnownUserIsAllowedToo) {
    SetSignIn(QString());
    EXPECT_TRUE(Check(4));
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, QString());
}

TEST_F(Rights, WithPinsAKnownPersonWithTheRightPassesWithoutADialog) {
    Globals().PinRequired = 1;
    PinDialogDriver driver([](PinDialogDriver&) {});
    EXPECT_TRUE(Check(4));
    EXPECT_TRUE(Globals().OperatorAuthenticated);
    EXPECT_EQ(driver.Opened(), 0);
}

TEST_F(Rights, EachOperationHasItsOwnRightAndAnyOtherNumberNone) {
    const QStringList columns = {u"操作許可"_s, u"入力許可"_s,     u"修正許可"_s,         u"削除許可"_s,
                                 u"印刷許可"_s, u"プレビュ許可"_s, u"テキスト出力許可"_s, u"イメージ出力許可"_s};
    for (int forbidden = 0; forbidden < columns.size(); ++forbidden) {
        SetStaff(columns[forbidden] + u" = '1'"_s);
        for (int operation = 0; operation < columns.size(); ++operation)
            EXPECT_EQ(Load(operation), operation != forbidden) << operation;
        EXPECT_TRUE(Load(8));
        EXPECT_TRUE(Load(-1));
        SetStaff(columns[forbidden] + u" = '0'"_s);
    }
}

TEST_F(Rights, ARightOfLettersOrOfEmptyTextAllows) {
    for (const QString& right : {u"abc"_s, u""_s, u" 0 "_s, u"00"_s, u"x1"_s}) {
        SetStaff(u"印刷許可 = %1, 処理分類1操作許可 = %1"_s.arg(SqlLiteral(right)));
        EXPECT_TRUE(Load(4)) << right.toStdString();
    }
    for (const QString& right : {u"1"_s, u" 1"_s, u"9"_s, u"0 1"_s}) {
        SetStaff(u"印刷許可 = %1, 処理分類1操作許可 = '0'"_s.arg(SqlLiteral(right)));
        EXPECT_FALSE(Load(4)) << right.toStdString();
    }
}

TEST_F(Rights, EachClassOfWorkHasItsOwnRightAndAnyOtherNone) {
    for (const int workClass : {0, 1, 2, 4, 5, 6, 7, 8, 9}) {
        SetClass(QString::number(workClass));
        EXPECT_TRUE(Load(0)) << workClass;
        SetStaff(u"処理分類%1操作許可 = '1'"_s.arg(workClass));
        EXPECT_FALSE(Load(0)) << workClass;
    }
    SetClass(u"10"_s);
    EXPECT_TRUE(Load(0));
    SetClass(QString());
    EXPECT_FALSE(Load(0)) << "no class is class 0";
}

TEST_F(Rights, ClassThreeIsRefusedToTheWholeCompanyWhereThereAreOffices) {
    SetClass(u"3"_s);
    Globals().OfficeCount = 2;
    EXPECT_FALSE(Load(0)) << "whatever the rights say";
}

TEST_F(Rights, ClassThreeIsAllowedWithoutAskingWhereThereIsNoOtherOffice) {
    SetClass(u"3"_s);
    SetStaff(u"処理分類3操作許可 = '1'"_s);
    Globals().OfficeCount = 0;
    EXPECT_TRUE(Load(0));
}

TEST_F(Rights, ClassThreeAtARealOfficeGoesByTheRight) {
    SetClass(u"3"_s);
    Globals().OfficeCount = 2;
    Globals().Environment.OperatingOfficeCode = u"001"_s;
    EXPECT_TRUE(Load(0));
    SetStaff(u"処理分類3操作許可 = '1'"_s);
    EXPECT_FALSE(Load(0));
}

TEST_F(Rights, APersonalRuleWinsOverTheClassAlsoWhereClassThreeWouldRefuse) {
    SetClass(u"3"_s);
    Globals().OfficeCount = 2;
    AddPersonalRule(Globals().MenuName, {u"0"_s, u"1"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"1"_s, QString()});
    EXPECT_TRUE(Load(0));
    EXPECT_FALSE(Load(1));
    EXPECT_TRUE(Load(4));
    EXPECT_FALSE(Load(6));
    EXPECT_TRUE(Load(7)) << "a Null counts as empty";
    EXPECT_EQ(Globals().Staff.OperationRights[7], QString());
}

TEST_F(Rights, APersonalRuleThatForbidsWinsOverAClassThatAllows) {
    AddPersonalRule(Globals().MenuName, kAllForbidden);
    EXPECT_FALSE(Load(0));
    EXPECT_FALSE(Load(4));
}

TEST_F(Rights, APersonalRuleOfAnotherMenuCountsOnlyForAMenuOutsideTheSuite) {
    AddPersonalRule(u"販路推進"_s, kAllForbidden);
    EXPECT_TRUE(Load(0));
    EXPECT_FALSE(LoadIdentityAndRights(u"別のメニュ"_s, Globals().ProgramId, Operation::Start));
    EXPECT_TRUE(History().isEmpty()) << "the menu's own table was not asked for";
}

TEST_F(Rights, WithoutAKnownPersonNoPersonalRuleIsLookedFor) {
    AddPersonalRule(Globals().MenuName, kAllForbidden);
    Globals().Staff = StaffIdentity();
    EXPECT_TRUE(Evaluate(0));
}

TEST_F(Rights, AProgramWithoutARowInItsMenuIsRefused) {
    installation.Configuration().Execute(u"DELETE FROM 販路推進データ管理"_s);
    EXPECT_FALSE(Load(0));
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(Rights, AMissingMenuTableRefusesAndLeavesItsStatement) {
    installation.Configuration().Execute(u"DROP TABLE 販路推進データ管理"_s);
    EXPECT_FALSE(Load(0));
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().first().endsWith(u"SELECT * FROM 販路推進データ管理 WHERE プログラムID = ''要員名簿照会''"_s))
        << History().first().toStdString();
}

TEST_F(Rights, AMissingTableOfPersonalRulesLeavesTheClassAndTheStatement) {
    installation.General().Execute(u"DROP TABLE 担当者別操作許可プログラム"_s);
    EXPECT_TRUE(Load(0));
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().first().endsWith(
        u"SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム"
        u" WHERE 担当者別操作許可プログラム.担当者コード = ''00001'' AND 担当者別操作許可プログラム.業務メニュ ="
        u" ''販路推進データ管理'' AND 担当者別操作許可プログラム.プログラムID = ''要員名簿照会''"_s))
        << History().first().toStdString();
}

TEST_F(Rights, AnUnknownStoredPersonHasNoRight) {
    SetSignIn(u"99999"_s);
    EXPECT_FALSE(Load(0));
    EXPECT_FALSE(Globals().OperatorAuthenticated);
}

TEST_F(Rights, AStoredCodeWithQuotesFailsLoudlyAndGrantsNothing) {
    Globals().PinRequired = 1;
    SetSignIn(u"0'1"_s);
    Globals().OperatorAuthenticated = true;
    EXPECT_THROW(Check(4), database::DatabaseError);
    EXPECT_FALSE(Globals().OperatorAuthenticated);
}

TEST_F(Rights, SavingTheSignInKeepsTheCodeAndLoadsThePerson) {
    installation.General().Execute(u"INSERT INTO M担当者 (コード, 氏名) VALUES ('00002', '松尾　徳男')"_s);
    Globals().Staff.LaunchingStaffCode = u"00002"_s;
    SaveLaunchStaffCode();
    EXPECT_EQ(StoredSignIn(), u"00002"_s);
    EXPECT_EQ(Globals().Staff.StaffName, u"松尾　徳男"_s);
    EXPECT_EQ(History(), QStringList{u"出力終了 UPDATE 動作環境定義 SET 起動担当者コード = ''00002'' "
                                     u" WHERE 動作環境定義ID = ''001''"_s});
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(Rights, AnUnknownUserIsNotSaved) {
    Globals().Staff.LaunchingStaffCode = u"  "_s;
    SaveLaunchStaffCode();
    EXPECT_EQ(StoredSignIn(), u"00001"_s);
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(Rights, AFailedSaveIsReportedAndLoadsNoUser) {
    Globals().Staff.LaunchingStaffCode = u"0'1"_s;
    SaveLaunchStaffCode();
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"データベースに問題が発生し修正できませんでした。"_s});
    EXPECT_EQ(Globals().Staff.StaffName, QString());
    EXPECT_EQ(StoredSignIn(), u"00001"_s);
}
