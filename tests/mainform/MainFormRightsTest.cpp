#include <QFile>
#include <optional>

#include "access/PinDialogDriver.h"
#include "frame/Mod要員名簿照会.h"
#include "globals/ProgramGlobals.h"
#include "support/FileBytes.h"
#include "support/MainFormFixture.h"
#include "support/SamplePins.h"

using namespace Qt::StringLiterals;

namespace {

const QString kNoRight = u"操作権限がありません。"_s;

/// A company with PINs. Staff member 00001 has all rights.
class RightsTest : public MainFormTest {
  protected:
    RightsTest() {
        installation.General().Execute(
            u"UPDATE Mユーザ SET 暗証番号有無 = '1'; UPDATE M事業所 SET 暗証番号有無 = '1';"
            u"UPDATE M担当者 SET 事業所コード = '000', 在籍区分 = '0' WHERE コード < '00010'"_s);
    }
    QString KeyFile() const { return installation.ConfFolder() + u"/pin.key"_s; }
    QString PinOf(const QString& code) const {
        return SamplePins(installation.Root())
            .Opened(installation.General().Value(u"SELECT 暗証番号 FROM M担当者 WHERE コード = '%1'"_s.arg(code)));
    }
    void WithoutSignIn() const { installation.SetEnvironment(u"起動担当者コード"_s, QString()); }
    void Forbid(const QString& right, const QString& code) const {
        installation.General().Execute(u"UPDATE M担当者 SET %1 = '1' WHERE コード = '%2'"_s.arg(right, code));
    }
    static PinDialogDriver::Work SignIn(const QString& code, const QString& pin) {
        return [code, pin](PinDialogDriver& user) {
            user.Type(code);
            user.Press(Qt::Key_Tab);
            user.EnterPin(pin);
        };
    }
    static void Cancel(PinDialogDriver& user) { user.Click(u"btn_キャンセル"_s); }
    /// Starts the program, which must exit before its window is shown.
    void ExpectRefusedStart(const PinDialogDriver::Work& work) {
        PinDialogDriver driver(work);
        services.system.applicationFolder = installation.ProgramFolder();
        Main();
        EXPECT_EQ(services.processes.ends, QList<int>{0});
        EXPECT_FALSE(Globals().MainForm->isVisible());
        EXPECT_EQ(driver.Opened(), 1);
    }
    QStringList Errors() const { return History().filter(u"エラー "_s); }
};

const QStringList kOutputs = {u"btn_印刷"_s, u"btn_プレビュ"_s, u"btn_封筒"_s, u"btn_はがき"_s, u"btn_宛名ラベル"_s};

}  // namespace

TEST_F(RightsTest, AKnownPersonWithTheRightStartsWithoutADialog) {
    PinDialogDriver driver(Cancel);
    Start();
    EXPECT_EQ(driver.Opened(), 0);
    EXPECT_EQ(Globals().PinRequired, 1);
    EXPECT_GE(Globals().LastRow, 0);
}

TEST_F(RightsTest, EncryptedPinSignsInAndTheTitleShowsTheName) {
    WithoutSignIn();
    PinDialogDriver driver(SignIn(u"00002"_s, PinOf(u"00002"_s).toLower()));
    Forbid(u"入力許可"_s, u"00002"_s);
    Start();
    EXPECT_EQ(driver.Opened(), 1);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_EQ(installation.Configuration().Value(u"SELECT 起動担当者コード FROM 動作環境定義"_s), u"00002"_s);
    EXPECT_EQ(Item(u"prg_ttl"_s).Caption(), u"要員名簿照会(全社)「松尾　德男」"_s);
    EXPECT_TRUE(Errors().isEmpty());
}

TEST_F(RightsTest, PrivilegedPinOfTheOfficeSignsInWithAnyCode) {
    WithoutSignIn();
    installation.SetEnvironment(u"運用事業所コード"_s, u"001"_s);
    PinDialogDriver driver(SignIn(u"00002"_s, u"honsha01"_s));
    Start();
    EXPECT_EQ(driver.Opened(), 1);
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, u"00002"_s);
}

TEST_F(RightsTest, ACancelledSignInEndsTheStartWithItsMessage) {
    WithoutSignIn();
    ExpectRefusedStart(Cancel);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kNoRight});
    EXPECT_EQ(services.dialogs.shown.first().title, u"要員名簿照会"_s);
    EXPECT_EQ(History().last(), u"終了"_s);
}

TEST_F(RightsTest, MissingRightEndsTheStart) {
    Forbid(u"処理分類1操作許可"_s, u"00001"_s);
    ExpectRefusedStart(SignIn(u"00001"_s, PinOf(u"00001"_s)));
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kNoRight});
}

TEST_F(RightsTest, APersonalRuleForThisProgramWinsAtTheStart) {
    Forbid(u"処理分類1操作許可"_s, u"00001"_s);
    installation.General().Execute(
        u"INSERT INTO 担当者別操作許可プログラム (担当者コード, 業務メニュ, プログラムID, 操作許可)"
        u" VALUES ('00001', '販路推進データ管理', '要員名簿照会', '0')"_s);
    PinDialogDriver driver(Cancel);
    Start();
    EXPECT_EQ(driver.Opened(), 0);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(RightsTest, WithoutPinsAPersonOfNoRightsStartsAndPrints) {
    installation.General().Execute(u"UPDATE Mユーザ SET 暗証番号有無 = '0'"_s);
    for (const QString& right : {u"処理分類1操作許可"_s, u"操作許可"_s, u"印刷許可"_s}) Forbid(right, u"00001"_s);
    PinDialogDriver driver(Cancel);
    Start();
    Click(u"btn_印刷"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"印刷しますか?"_s});
    EXPECT_EQ(driver.Opened(), 0);
}

TEST_F(RightsTest, OfficeWithoutPinsNeverAsksForOne) {
    installation.General().Execute(
        u"UPDATE M事業所 SET 暗証番号有無 = '0' WHERE コード = '002';"
        u"UPDATE M担当者 SET 事業所コード = '002', 在籍区分 = '0' WHERE コード > '00030'"_s);
    installation.SetEnvironment(u"運用事業所コード"_s, u"002"_s);
    for (const QString& right : {u"処理分類1操作許可"_s, u"操作許可"_s, u"印刷許可"_s}) Forbid(right, u"00001"_s);
    PinDialogDriver driver(Cancel);
    Start();
    EXPECT_EQ(Globals().PinRequired, 0);
    Click(u"btn_印刷"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"印刷しますか?"_s});
    EXPECT_EQ(driver.Opened(), 0);
}

TEST_F(RightsTest, EachOutputButtonAsksForItsOwnRight) {
    const QList<QPair<QString, QStringList>> rights = {
        {u"印刷許可"_s, {u"btn_印刷"_s, u"btn_封筒"_s, u"btn_はがき"_s, u"btn_宛名ラベル"_s}},
        {u"プレビュ許可"_s, {u"btn_プレビュ"_s}}};
    Start();
    for (const auto& [right, refused] : rights) {
        installation.General().Execute(u"UPDATE M担当者 SET 印刷許可 = '0', プレビュ許可 = '0'"_s);
        Forbid(right, u"00001"_s);
        for (const QString& button : kOutputs) {
            installation.SetEnvironment(u"起動担当者コード"_s, u"00001"_s);
            services.dialogs.shown.clear();
            PinDialogDriver driver(Cancel);
            Click(button);
            EXPECT_EQ(driver.Opened(), refused.contains(button) ? 1 : 0) << button.toStdString();
            EXPECT_EQ(services.dialogs.shown.size(), refused.contains(button) ? 0 : 1) << button.toStdString();
        }
    }
}

TEST_F(RightsTest, TextOutputWithoutItsRightReturnsToTheHeadSilently) {
    Start();
    Click(u"検索カナ"_s);
    Forbid(u"テキスト出力許可"_s, u"00001"_s);
    PinDialogDriver driver(Cancel);
    Click(u"btn_テキスト出力"_s);
    EXPECT_EQ(driver.Opened(), 1);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_EQ(Focused(), u"検索カナ"_s);
}

TEST_F(RightsTest, AnotherPersonMaySignInAtARefusedButton) {
    Start();
    Forbid(u"印刷許可"_s, u"00001"_s);
    PinDialogDriver driver(SignIn(u"00003"_s, PinOf(u"00003"_s)));
    Click(u"btn_印刷"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"印刷しますか?"_s});
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, u"00003"_s);
}

TEST_F(RightsTest, WrongKeyFileRefusesTheStartAndIsLogged) {
    WithoutSignIn();
    const QString pin = PinOf(u"00002"_s);
    const std::optional<QByteArray> keys[] = {QByteArray(), QByteArray(32, 'k'), std::nullopt};
    for (const auto& key : keys) {
        ASSERT_TRUE(QFile::remove(KeyFile()));
        if (key) WriteBytes(KeyFile(), *key);
        services.dialogs.shown.clear();
        services.processes.ends.clear();
        installation.Configuration().Execute(u"DELETE FROM プログラム稼動履歴"_s);
        ExpectRefusedStart([&](PinDialogDriver& user) {
            SignIn(u"00002"_s, pin)(user);
            user.EnterPin(QString());
            user.EnterPin(u"    "_s);
            user.EnterPin(u"TOKKEN01"_s);
            Cancel(user);
        });
        EXPECT_EQ(services.dialogs.Texts().count(u"暗証番号が違います。"_s), 3);
        EXPECT_EQ(services.dialogs.Texts().last(), kNoRight);
        ASSERT_EQ(Errors().size(), 1);
        EXPECT_TRUE(Errors().first().startsWith(u"エラー 暗証番号を開けません。鍵ファイル "_s));
        TearDown();
        ResetGlobals();
    }
}

TEST_F(RightsTest, PlainPinIsRefusedIfPinsAreEncrypted) {
    WithoutSignIn();
    installation.General().Execute(u"UPDATE M担当者 SET 暗証番号 = 'CLEAR1'"_s);
    ExpectRefusedStart([](PinDialogDriver& user) {
        SignIn(u"00002"_s, u"CLEAR1"_s)(user);
        Cancel(user);
    });
    EXPECT_EQ(services.dialogs.Texts(), QStringList({u"暗証番号が違います。"_s, kNoRight}));
    EXPECT_EQ(Errors(), QStringList{u"エラー 暗証番号を開けません。封じられていない暗証番号があります。"_s});
}

TEST_F(RightsTest, PlainPinsSignInIfPinsAreNotEncrypted) {
    WithoutSignIn();
    ASSERT_TRUE(QFile::remove(KeyFile()));
    installation.General().Execute(
        u"UPDATE M担当者 SET 暗証番号 = 'CLEAR1'; UPDATE M事業所 SET 特権暗証番号 = NULL;"
        u"UPDATE Mユーザ SET 特権暗証番号 = NULL, システム特権暗証番号 = NULL"_s);
    PinDialogDriver driver(SignIn(u"00002"_s, u"CLEAR1"_s));
    Start();
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, u"00002"_s);
    EXPECT_TRUE(Errors().isEmpty());
}

TEST_F(RightsTest, ThePinColumnShowsTheClearPinOfASealedOne) {
    Start();
    const QStringList codes = Column(u"担当者コード"_s);
    const QStringList pins = Column(u"暗証番号"_s);
    for (int position = 0; position < codes.size(); ++position) {
        EXPECT_TRUE(Item(u"暗証番号"_s, position).Visible());
        EXPECT_EQ(pins[position], PinOf(codes[position]));
        EXPECT_GE(pins[position].size(), 4);
    }
}

TEST_F(RightsTest, ThePinColumnIsHiddenFromWhoLacksTheRightOfClassNine) {
    Forbid(u"処理分類9操作許可"_s, u"00001"_s);
    for (const QString& office : {u"000"_s, u"001"_s}) {
        installation.SetEnvironment(u"運用事業所コード"_s, office);
        Start();
        EXPECT_EQ(Globals().ScopeOfficeCode, office);
        EXPECT_GE(Globals().LastRow, 7);
        for (int position = 0; position < 8; ++position) EXPECT_FALSE(Item(u"暗証番号"_s, position).Visible());
        TearDown();
        ResetGlobals();
    }
}
