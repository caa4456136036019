#include "access/CompanyInformation.h"

#include "frame/Mod要員名簿照会.h"
#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {

const QString kNoUser = u"ユーザ情報が使用できません。"_s;
const QString kNoLabels = u"システムデータベースに問題があり登録できません"_s;
const QString kCorrection =
    u"出力終了 UPDATE 動作環境定義 SET  運用事業所コード = ''000'' WHERE 動作環境定義ID = ''001''"_s;

/// A company without PINs, so that no right is checked at the start.
class UserInformation : public MainFormTest {
  protected:
    UserInformation() { General(u"UPDATE Mユーザ SET 暗証番号有無 = '0'; UPDATE M事業所 SET 暗証番号有無 = '0'"_s); }

    void General(const QString& sql) { installation.General().Execute(sql); }
    void Menu(const QString& sql) { installation.Configuration().Execute(sql); }
    QString StoredOffice() {
        return installation.Configuration().Value(u"SELECT 運用事業所コード FROM 動作環境定義"_s);
    }
    QString Label(QChar letter) {
        return installation.Configuration().Value(
            u"SELECT 条件項目名%1 FROM 販路推進データ管理 WHERE プログラムID = '要員名簿照会'"_s.arg(letter));
    }
    void ExpectRefusal() {
        services.system.applicationFolder = installation.ProgramFolder();
        Main();
        EXPECT_EQ(services.dialogs.Texts(), QStringList{kNoUser});
        EXPECT_EQ(services.processes.ends, QList<int>{0});
        EXPECT_FALSE(Globals().MainForm->isVisible());
        EXPECT_FALSE(Globals().MainConnection.IsOpen());
        EXPECT_EQ(History().first(), u"開始 "_s);
        EXPECT_EQ(History().last(), u"終了"_s);
    }
    /// The start goes on to the first list after one complaint about the menu table.
    void ExpectOneComplaint() {
        Start();
        EXPECT_EQ(services.dialogs.Texts(), QStringList{kNoLabels});
        EXPECT_TRUE(MainForm().isVisible());
        EXPECT_GE(Globals().LastRow, 0);
        EXPECT_TRUE(services.processes.ends.isEmpty());
    }
};

}  // namespace

TEST_F(UserInformation, TheCaptionNamesTheCompanyInFullWidthBracketsAndTheTitleTheOfficeInHalfWidthOnes) {
    installation.SetEnvironment(u"運用事業所コード"_s, u"002"_s);
    General(u"UPDATE M担当者 SET 氏名 = '山田　太郎' WHERE コード = '00001'"_s);
    Start();
    EXPECT_EQ(MainForm().windowTitle(), u"要員名簿照会（見本商事株式会社）"_s);
    EXPECT_EQ(Item(u"prg_ttl"_s).Caption(), u"要員名簿照会(大阪支店)「山田　太郎」"_s);
}

TEST_F(UserInformation, TheWholeCompanyAndNobodyKnown) {
    installation.SetEnvironment(u"起動担当者コード"_s, QString());
    Start();
    EXPECT_EQ(Item(u"prg_ttl"_s).Caption(), u"要員名簿照会(全社)"_s);
}

TEST_F(UserInformation, ATextOutputIsFirstOfferedInTheOfficesOwnFolder) {
    installation.SetEnvironment(u"運用事業所コード"_s, u"002"_s);
    General(
        u"UPDATE Mユーザ SET テキスト出力フォルダ = '/company';"
        u"UPDATE M事業所 SET テキスト出力フォルダ = '/office' WHERE コード = '002'"_s);
    Start();
    EXPECT_EQ(Globals().TextOutputFileName, u"/office/要員名簿照会.CSV"_s);
    EXPECT_EQ(Globals().Company.テキスト出力フォルダ, u"/office"_s);
}

TEST_F(UserInformation, TheCompanysFolderIsNotOfferedForAnOfficeWithout) {
    installation.SetEnvironment(u"運用事業所コード"_s, u"002"_s);
    General(u"UPDATE Mユーザ SET テキスト出力フォルダ = '/company'"_s);
    Start();
    EXPECT_EQ(Globals().TextOutputFileName, u"/要員名簿照会.CSV"_s);
    EXPECT_EQ(Globals().Company.テキスト出力フォルダ, u"/company"_s);
}

TEST_F(UserInformation, WithoutTheCompanysRowTheStartEndsBeforeTheLabels) {
    General(u"UPDATE Mユーザ SET ID = '0002'"_s);
    ExpectRefusal();
    EXPECT_EQ(History().size(), 2);
    EXPECT_TRUE(Label(u'A').isNull());
}

TEST_F(UserInformation, AFailedReadEndsTheStartAndDoesNotRewriteTheOffice) {
    for (const QString& table : {u"M他業務連携"_s, u"M事業所"_s, u"Mユーザ"_s}) {
        Menu(u"DELETE FROM プログラム稼動履歴"_s);
        installation.SetEnvironment(u"運用事業所コード"_s, u"009"_s);
        if (table == u"M他業務連携"_s) installation.SetEnvironment(u"運用事業所コード"_s, u"002"_s);
        const QString office = StoredOffice();
        General(u"DROP TABLE "_s + table);
        ExpectRefusal();
        EXPECT_EQ(StoredOffice(), office) << table.toStdString();
        EXPECT_EQ(History().size(), 3) << "開始, one エラー, 終了";
        EXPECT_EQ(History().count(kCorrection), 0);
        services.dialogs.shown.clear();
        services.processes.ends.clear();
        TearDown();
        ResetGlobals();
    }
}

TEST_F(UserInformation, AVanishedOfficeIsCorrectedAndTheStartGoesOnForTheWholeCompany) {
    installation.SetEnvironment(u"運用事業所コード"_s, u"009"_s);
    Start();
    EXPECT_EQ(Globals().Environment.OperatingOfficeCode, u"000"_s);
    EXPECT_TRUE(Item(u"prg_ttl"_s).Caption().startsWith(u"要員名簿照会(全社)"_s));
    EXPECT_EQ(StoredOffice(), u"000"_s);
    EXPECT_EQ(History().count(kCorrection), 1);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(UserInformation, NoOfficeRowsLeaveACompanyWithoutOffices) {
    General(u"DELETE FROM M事業所"_s);
    installation.SetEnvironment(u"起動担当者コード"_s, QString());
    Start();
    EXPECT_EQ(Item(u"prg_ttl"_s).Caption(), u"要員名簿照会"_s);
    EXPECT_EQ(Globals().TextOutputFileName, u"/要員名簿照会.CSV"_s);
    EXPECT_EQ(StoredOffice(), u"000"_s);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(UserInformation, NullsEverywhereStillStart) {
    General(
        u"DELETE FROM Mユーザ; INSERT INTO Mユーザ (ID) VALUES ('0001');"
        u"DELETE FROM M事業所; INSERT INTO M事業所 (コード) VALUES ('000'), ('002');"
        u"DELETE FROM M他業務連携; INSERT INTO M他業務連携 (コード) VALUES ('003')"_s);
    installation.SetEnvironment(u"運用事業所コード"_s, u"002"_s);
    installation.SetEnvironment(u"起動担当者コード"_s, QString());
    Start();
    EXPECT_EQ(MainForm().windowTitle(), u"要員名簿照会（）"_s);
    EXPECT_EQ(Item(u"prg_ttl"_s).Caption(), u"要員名簿照会"_s);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(UserInformation, EachStartEmptiesTheLabelsBehindItsOwn) {
    for (int start = 0; start < 2; ++start) {
        Menu(
            u"UPDATE 販路推進データ管理 SET 条件項目名O = '古', 条件項目名P = '古', 条件項目名Z = '古'"
            u" WHERE プログラムID = '要員名簿照会'"_s);
        Start();
        EXPECT_EQ(Label(u'O'), u"表示順区分"_s);
        EXPECT_EQ(Label(u'P'), u""_s);
        EXPECT_EQ(Label(u'Z'), u""_s);
        EXPECT_FALSE(Label(u'Z').isNull());
        TearDown();
        ResetGlobals();
    }
}

TEST_F(UserInformation, AMenuTableThatRefusesTheLabelsIsSaidOnceAndTheStartGoesOn) {
    Menu(u"CREATE TRIGGER 施錠 BEFORE UPDATE ON 販路推進データ管理 BEGIN SELECT RAISE(ABORT, 'locked'); END"_s);
    ExpectOneComplaint();
    ASSERT_EQ(History().size(), 3);
    EXPECT_TRUE(History()[1].startsWith(u"エラー lockedUPDATE 販路推進データ管理 SET "_s))
        << History()[1].toStdString();
    EXPECT_TRUE(Label(u'A').isNull());
}

TEST_F(UserInformation, AMissingMenuTableIsSaidOnceAndTheStartGoesOn) {
    Menu(u"DROP TABLE 販路推進データ管理"_s);
    ExpectOneComplaint();
}

TEST_F(UserInformation, AMenuWithoutThisProgramIsNotSpokenOf) {
    Menu(u"DELETE FROM 販路推進データ管理 WHERE プログラムID = '要員名簿照会'"_s);
    Start();
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_GE(Globals().LastRow, 0);
}
