#include "access/PinDialogDriver.h"
#include "access/RightsFixture.h"
#include "access/msg暗証番号確認.h"
#include "data/RunHistory.h"
#include "screen/InputItem.h"
#include "screen/SuiteApplication.h"
#include "screen/modクライアント処理.h"
#include "support/FocusMarks.h"
#include "support/FormLayout.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;

namespace {

const QString kWrong = u"暗証番号が違います。"_s;
const QString kTooShort = u"暗証番号を入力してください。"_s;

/// No user is signed in, so every check shows the dialog.
class PinDialog : public WithRights {
  protected:
    PinDialog() {
        Globals().PinRequired = 1;
        Globals().OsUserName = u"nobody"_s;
        SetSignIn(QString());
        AddPerson(u"00002"_s, u"000"_s, u"PIN02"_s);
    }
    void AddPerson(const QString& code, const QString& office, const QString& pin) const {
        installation.General().Execute(
            u"INSERT INTO M担当者 (コード, 氏名, 在籍区分, 事業所コード, 暗証番号) VALUES ('%1', '氏名%1', '0', '%2', '%3')"_s
                .arg(code, office, pin));
    }
    /// Checks the right to print while the robot operates the dialog.
    bool Ask(const PinDialogDriver::Work& work) {
        PinDialogDriver driver(work);
        const bool permitted = Check(4);
        opened = driver.Opened();
        return permitted;
    }
    static void EnterCode(PinDialogDriver& user, const QString& code) {
        user.Type(code);
        user.Press(Qt::Key_Tab);
    }

    int opened = 0;
};

}  // namespace

TEST_F(PinDialog, Layout) {
    EXPECT_FALSE(Ask([](PinDialogDriver& user) {
        ExpectLayout(*LoadedForm(u"msg暗証番号確認"_s), u"access"_s);
        user.Click(u"btn_キャンセル"_s);
    }));
}

TEST_F(PinDialog, EveryStopShowsThatItHasTheFocus) {
    const SuiteLook look;
    EXPECT_FALSE(Ask([](PinDialogDriver& user) {
        Form& dialog = *LoadedForm(u"msg暗証番号確認"_s);
        // They would move the focus back to an empty item.
        for (Control* control : dialog.Controls()) control->LostFocus = control->GotFocus = nullptr;
        EXPECT_EQ(ExpectFocusMarks(dialog),
                  QStringList({u"担当者コード"_s, u"担当者名"_s, u"暗証番号"_s, u"btn_OK"_s, u"btn_キャンセル"_s}));
        user.Click(u"btn_キャンセル"_s);
    }));
}

TEST_F(PinDialog, AStaffCodeAndItsPinSignIn) {
    EXPECT_TRUE(Ask([](PinDialogDriver& user) {
        EXPECT_EQ(user.Focused(), u"担当者コード"_s);
        EnterCode(user, u"2"_s);
        EXPECT_EQ(user.Text(u"担当者コード"_s), u"00002"_s);
        EXPECT_EQ(user.Text(u"担当者名"_s), u"氏名00002"_s);
        EXPECT_EQ(user.Focused(), u"暗証番号"_s);
        user.EnterPin(u"PIN02"_s);
    }));
    EXPECT_EQ(opened, 1);
    EXPECT_TRUE(Globals().OperatorAuthenticated);
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, u"00002"_s);
    EXPECT_EQ(Globals().Staff.StaffName, u"氏名00002"_s);
    EXPECT_EQ(StoredSignIn(), u"00002"_s);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(PinDialog, AKnownLoginNameGoesStraightToThePin) {
    Globals().OsUserName = u"tARO"_s;
    EXPECT_TRUE(Ask([](PinDialogDriver& user) {
        EXPECT_EQ(user.Text(u"担当者コード"_s), u"00001"_s);
        EXPECT_EQ(user.Text(u"担当者名"_s), u"山田　太郎"_s);
        EXPECT_EQ(user.Focused(), u"暗証番号"_s);
        EXPECT_FALSE(user.Item(u"担当者コード"_s).Enabled());
        EXPECT_TRUE(user.Item(u"担当者コード"_s).Visible());
        user.Click(u"itm_ttl_担当者コード"_s);
        user.Click(u"担当者コード"_s);
        EXPECT_EQ(user.Focused(), u"暗証番号"_s);
        user.EnterPin(u"PIN01"_s);
    }));
    EXPECT_EQ(StoredSignIn(), u"00001"_s);
    EXPECT_EQ(Globals().Staff.LoginId, u"Taro"_s);
}

TEST_F(PinDialog, ASignInStaysForLaterQuestions) {
    EXPECT_TRUE(Ask([](PinDialogDriver& user) {
        EnterCode(user, u"00002"_s);
        user.EnterPin(u"PIN02"_s);
    }));
    EXPECT_TRUE(Ask([](PinDialogDriver&) {}));
    EXPECT_EQ(opened, 0);
}

TEST_F(PinDialog, BearsTheMenuInItsCaptionAndItsItemsInTabOrder) {
    EXPECT_FALSE(Ask([](PinDialogDriver& user) {
        EXPECT_EQ(user.Dialog().windowTitle(), u"販路推進データ管理/暗証確認"_s);
        QStringList names, kinds;
        for (const Control* control : user.Dialog().Controls()) {
            names << control->Name();
            kinds << control->TypeName();
            EXPECT_EQ(control->TabIndex(), names.size() - 1);
        }
        EXPECT_EQ(names,
                  QStringList({u"itm_ttl_担当者コード"_s, u"担当者コード"_s, u"itm_ttl_担当者名"_s, u"担当者名"_s,
                               u"itm_ttl_暗証番号"_s, u"暗証番号"_s, u"btn_OK"_s, u"btn_キャンセル"_s}));
        EXPECT_EQ(kinds, QStringList({u"SSPanel"_s, u"xField"_s, u"SSPanel"_s, u"xField"_s, u"SSPanel"_s, u"xPass"_s,
                                      u"SSCommand"_s, u"SSCommand"_s}));
        EXPECT_EQ(user.Item(u"itm_ttl_担当者コード"_s).Caption(), u"コード"_s);
        EXPECT_EQ(user.Item(u"itm_ttl_担当者名"_s).Caption(), u"担当者氏名"_s);
        EXPECT_EQ(user.Item(u"itm_ttl_暗証番号"_s).Caption(), u"暗証番号"_s);
        EXPECT_EQ(user.Item(u"btn_OK"_s).Caption(), u"OK"_s);
        EXPECT_EQ(user.Item(u"btn_キャンセル"_s).Caption(), u"ｷｬﾝｾﾙ"_s);
        EXPECT_EQ(dynamic_cast<InputItem&>(user.Item(u"暗証番号"_s)).echoMode(), QLineEdit::Password);
        user.Click(u"btn_キャンセル"_s);
    }));
}

TEST_F(PinDialog, AWrongPinShowsExactlyOneBoxAndReturnsToThePin) {
    EXPECT_FALSE(Ask([this](PinDialogDriver& user) {
        EnterCode(user, u"00002"_s);
        user.EnterPin(u"PIN99"_s);
        EXPECT_EQ(services.dialogs.Texts(), QStringList{kWrong});
        EXPECT_EQ(user.Focused(), u"暗証番号"_s);
        QCoreApplication::processEvents();
        user.Click(u"btn_OK"_s);
        QCoreApplication::processEvents();
        EXPECT_EQ(services.dialogs.Texts(), QStringList({kWrong, kWrong})) << "a click is one more confirmation";
        EXPECT_EQ(user.Focused(), u"暗証番号"_s);
        user.Click(u"btn_キャンセル"_s);
    }));
    EXPECT_FALSE(Globals().OperatorAuthenticated);
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, QString());
    EXPECT_EQ(StoredSignIn(), QString());
}

TEST_F(PinDialog, OneConfirmationShowsOneRealBox) {
    /// Real message boxes, closed with Enter as soon as they are shown.
    class RealBoxes : public WidgetDialogs {
      public:
        explicit RealBoxes(int& count) : count_(count) {}
        void ShowMessage(const QString& text, const QString& title) override {
            ++count_;
            QTimer close;
            QObject::connect(&close, &QTimer::timeout, &close, [] {
                QWidget* box = QApplication::activeModalWidget();
                if (box != nullptr && box->inherits("QMessageBox")) QTest::keyClick(box, Qt::Key_Return);
            });
            close.start(0);
            WidgetDialogs::ShowMessage(text, title);
        }

      private:
        int& count_;
    };
    int boxes = 0;
    auto kept = std::move(platform::Services().dialogs);
    platform::Services().dialogs = std::make_unique<RealBoxes>(boxes);
    EXPECT_FALSE(Ask([&boxes](PinDialogDriver& user) {
        QApplication::setActiveWindow(&user.Dialog());
        EnterCode(user, u"00002"_s);
        user.EnterPin(u"PIN99"_s);
        for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
        EXPECT_EQ(boxes, 1);
        EXPECT_EQ(user.Focused(), u"暗証番号"_s);
        user.Click(u"btn_キャンセル"_s);
    }));
    platform::Services().dialogs = std::move(kept);
}

TEST_F(PinDialog, AWrongPinAHundredTimesLocksNoUserOut) {
    EXPECT_TRUE(Ask([this](PinDialogDriver& user) {
        EnterCode(user, u"00002"_s);
        for (int i = 0; i < 100; ++i) user.EnterPin(u"PIN9"_s + QString::number(i));
        EXPECT_EQ(services.dialogs.Texts(), QStringList(100, kWrong));
        user.EnterPin(u"PIN02"_s);
    }));
}

TEST_F(PinDialog, ThreeCharactersAreAskedForAgainAndNeverCalledWrong) {
    SetStaff(u"暗証番号 = 'ABC'"_s);
    Globals().OsUserName = u"Taro"_s;
    EXPECT_FALSE(Ask([this](PinDialogDriver& user) {
        user.EnterPin(u"ABC"_s);
        user.EnterPin(u""_s);
        EXPECT_EQ(services.dialogs.Texts(), QStringList({kTooShort, kTooShort}))
            << "also where the stored PIN is as short";
        user.EnterPin(u"ABCD"_s);
        EXPECT_EQ(services.dialogs.Texts().mid(2), QStringList{kWrong});
        user.Click(u"btn_キャンセル"_s);
    }));
}

TEST_F(PinDialog, SmallLettersMatchAPinOfCapitals) {
    EXPECT_TRUE(Ask([](PinDialogDriver& user) {
        EnterCode(user, u"00002"_s);
        user.EnterPin(u"pin02"_s);
    }));
}

TEST_F(PinDialog, TabAfterThePinConfirmsLikeEnter) {
    EXPECT_TRUE(Ask([](PinDialogDriver& user) {
        EnterCode(user, u"00002"_s);
        user.Type(u"PIN02"_s);
        user.Press(Qt::Key_Tab);
        EXPECT_FALSE(user.IsOpen());
    }));
}

TEST_F(PinDialog, AStoredPinWithSmallLettersNeverMatches) {
    AddPerson(u"00003"_s, u"000"_s, u"pin03"_s);
    EXPECT_FALSE(Ask([this](PinDialogDriver& user) {
        EnterCode(user, u"00003"_s);
        user.EnterPin(u"pin03"_s);
        user.EnterPin(u"PIN03"_s);
        EXPECT_EQ(services.dialogs.Texts(), QStringList({kWrong, kWrong}));
        user.Click(u"btn_キャンセル"_s);
    }));
}

TEST_F(PinDialog, ThePrivilegedPinOfTheOfficeOpensAnyCode) {
    Globals().Office.特権暗証番号 = u"TOKKEN"_s;
    EXPECT_TRUE(Ask([](PinDialogDriver& user) {
        EnterCode(user, u"00002"_s);
        user.EnterPin(u"tokken"_s);
    }));
    EXPECT_EQ(StoredSignIn(), u"00002"_s);
    SetSignIn(QString());
    Ask([](PinDialogDriver& user) {
        EnterCode(user, u"77777"_s);
        user.EnterPin(u"TOKKEN"_s);
    });
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, u"77777"_s);
    EXPECT_EQ(StoredSignIn(), u"77777"_s);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(PinDialog, AnUnknownCodeSaysNothingAndHasTheWrongPin) {
    EXPECT_FALSE(Ask([this](PinDialogDriver& user) {
        EnterCode(user, u"88888"_s);
        EXPECT_EQ(user.Text(u"担当者コード"_s), u"88888"_s);
        EXPECT_EQ(user.Text(u"担当者名"_s), QString());
        EXPECT_TRUE(services.dialogs.shown.isEmpty());
        user.EnterPin(u"PIN02"_s);
        EXPECT_EQ(services.dialogs.Texts(), QStringList{kWrong});
        user.Click(u"btn_キャンセル"_s);
    }));
}

/// Lookups that find no row, each after one that has found the person whose PIN is then typed.
class LookupWithoutARow : public PinDialog, public testing::WithParamInterface<const char16_t*> {
  protected:
    LookupWithoutARow() {
        AddPerson(u"00003"_s, u"000"_s, u"PIN03"_s);
        AddPerson(u"00004"_s, u"002"_s, u"PIN04"_s);
        installation.General().Execute(
            u"UPDATE M担当者 SET 在籍区分 = '1', 退社日付 = '20200331' WHERE コード = '00003'"_s);
    }
    static void EnterAfterAKnownCode(PinDialogDriver& user, const QString& code) {
        EnterCode(user, u"00002"_s);
        user.Click(u"担当者コード"_s);
        user.Press(Qt::Key_A, Qt::ControlModifier);
        user.Press(Qt::Key_Delete);
        EnterCode(user, code);
    }
};

TEST_P(LookupWithoutARow, ForgetsThePinOfThePersonBefore) {
    EXPECT_FALSE(Ask([this](PinDialogDriver& user) {
        EnterAfterAKnownCode(user, QString::fromUtf16(GetParam()));
        EXPECT_EQ(user.Text(u"担当者コード"_s), QString::fromUtf16(GetParam()));
        EXPECT_EQ(user.Text(u"担当者名"_s), u"氏名00002"_s) << "the items stay as they are";
        user.EnterPin(u"PIN02"_s);
        EXPECT_EQ(services.dialogs.Texts(), QStringList{kWrong});
        user.Click(u"btn_キャンセル"_s);
    }));
    EXPECT_FALSE(Globals().OperatorAuthenticated);
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, QString());
    EXPECT_EQ(StoredSignIn(), QString());
}

TEST_P(LookupWithoutARow, LeavesThePrivilegedPinOfTheOffice) {
    Globals().Office.特権暗証番号 = u"TOKKEN"_s;
    Ask([](PinDialogDriver& user) {
        EnterAfterAKnownCode(user, QString::fromUtf16(GetParam()));
        user.EnterPin(u"TOKKEN"_s);
    });
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_EQ(StoredSignIn(), QString::fromUtf16(GetParam()));
}
// Unknown, retired, of an office out of scope.
INSTANTIATE_TEST_SUITE_P(Of, LookupWithoutARow, testing::Values(u"88888", u"00003", u"00004"));

TEST_F(PinDialog, AnUnknownLoginNameForgetsThePinOfThePersonBefore) {
    EXPECT_FALSE(Ask([this](PinDialogDriver& user) {
        EnterCode(user, u"00002"_s);
        bool found = true;
        dynamic_cast<msg暗証番号確認&>(user.Dialog()).LookUpStaffByLogin(u"nobody-of-this-name"_s, found);
        EXPECT_FALSE(found);
        user.EnterPin(u"PIN02"_s);
        EXPECT_EQ(services.dialogs.Texts(), QStringList{kWrong});
        user.Click(u"btn_キャンセル"_s);
    }));
    EXPECT_FALSE(Globals().OperatorAuthenticated);
}

TEST_F(PinDialog, AFailedLookUpForgetsThePinOfThePersonBefore) {
    EXPECT_FALSE(Ask([this](PinDialogDriver& user) {
        EnterCode(user, u"00002"_s);
        installation.General().Execute(u"ALTER TABLE M担当者 RENAME TO 退避"_s);
        user.Click(u"担当者コード"_s);
        user.Press(Qt::Key_Tab);
        user.EnterPin(u"PIN02"_s);
        EXPECT_EQ(services.dialogs.Texts(), QStringList{kWrong});
        user.Click(u"btn_キャンセル"_s);
    }));
    EXPECT_EQ(StoredSignIn(), QString());
}

TEST_F(PinDialog, AnEmptyPinOfAPersonLetsNoUserIn) {
    for (const QString& stored : {QString(), u""_s}) {
        installation.General().Execute(u"UPDATE M担当者 SET 暗証番号 = "_s + SqlLiteral(stored));
        services.dialogs.shown.clear();
        EXPECT_FALSE(Ask([this](PinDialogDriver& user) {
            EnterCode(user, u"00002"_s);
            user.EnterPin(QString());
            user.EnterPin(u"    "_s);
            EXPECT_EQ(services.dialogs.Texts(), QStringList({kTooShort, kWrong}));
            user.Click(u"btn_キャンセル"_s);
        }));
    }
}

TEST_F(PinDialog, WhoLeavesTodayIsNotFoundAndWhoLeavesTomorrowIs) {
    services.clock.now = QDateTime(QDate(2026, 11, 21), QTime(23, 59, 59));
    const QList<QPair<QString, bool>> lastDays = {
        {u"20261121"_s, false}, {u"20261122"_s, true}, {u"20261120"_s, false}, {u""_s, false}, {QString(), false}};
    for (const auto& [day, found] : lastDays) {
        installation.General().Execute(u"UPDATE M担当者 SET 在籍区分 = '1', 退社日付 = "_s + SqlLiteral(day));
        Ask([expected = found ? u"氏名00002"_s : QString()](PinDialogDriver& user) {
            EnterCode(user, u"00002"_s);
            EXPECT_EQ(user.Text(u"担当者名"_s), expected);
            user.Click(u"btn_キャンセル"_s);
        });
    }
    EXPECT_EQ(opened, 1);
}

TEST_F(PinDialog, OnlyTheOfficeInScopeAndTheWholeCompanyAreFound) {
    Globals().ScopeOfficeCode = u"001"_s;
    AddPerson(u"00003"_s, u"001"_s, u"PIN03"_s);
    AddPerson(u"00004"_s, u"002"_s, u"PIN04"_s);
    const QList<QPair<QString, bool>> people = {{u"00002"_s, true}, {u"00003"_s, true}, {u"00004"_s, false}};
    for (const auto& person : people)
        Ask([&person](PinDialogDriver& user) {
            EnterCode(user, person.first);
            EXPECT_EQ(!user.Text(u"担当者名"_s).isEmpty(), person.second) << person.first.toStdString();
            user.Click(u"btn_キャンセル"_s);
        });
    EXPECT_EQ(opened, 1);
}

TEST_F(PinDialog, CancelAndCloseBoxLeaveNoKnownUserAndShowNothing) {
    for (const bool byBox : {false, true}) {
        Globals().Staff.LaunchingStaffCode = u"00009"_s;
        EXPECT_FALSE(Ask([byBox](PinDialogDriver& user) {
            EXPECT_EQ(Globals().Staff.LaunchingStaffCode, QString());
            if (byBox)
                user.Dialog().close();
            else
                user.Click(u"btn_キャンセル"_s);
            EXPECT_FALSE(user.IsOpen());
        }));
        EXPECT_FALSE(Globals().OperatorAuthenticated);
        EXPECT_EQ(Globals().Staff.LaunchingStaffCode, QString());
    }
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(PinDialog, CancelAfterASignInWithoutTheRightLeavesNoStaffCodeInTheHistory) {
    SetStaff(u"印刷許可 = '1'"_s);
    SetSignIn(u"00001"_s);
    EXPECT_FALSE(Ask([](PinDialogDriver& user) { user.Click(u"btn_キャンセル"_s); }));
    EXPECT_EQ(opened, 1);
    RecordRunEnd();
    EXPECT_EQ(installation.Configuration().Rows(u"SELECT 摘要, 起動担当者コード FROM プログラム稼動履歴"_s),
              (QList<QStringList>{{u"終了"_s, u""_s}}));
    EXPECT_EQ(StoredSignIn(), u"00001"_s);
}

TEST_F(PinDialog, SomebodyWithoutTheRightIsAskedAgainAndRefusedWithoutAWord) {
    SetStaff(u"印刷許可 = '1'"_s);
    SetSignIn(u"00001"_s);
    const PinDialogDriver::Work signIn = [](PinDialogDriver& user) {
        EnterCode(user, u"00001"_s);
        user.EnterPin(u"PIN01"_s);
    };
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(Ask(signIn));
        EXPECT_EQ(opened, 1);
        EXPECT_TRUE(Globals().OperatorAuthenticated);
    }
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(PinDialog, TheSignInIsValidThoughItCannotBeKept) {
    EXPECT_TRUE(Ask([this](PinDialogDriver& user) {
        installation.Configuration().Execute(u"ALTER TABLE 動作環境定義 RENAME TO 退避"_s);
        EnterCode(user, u"00002"_s);
        user.EnterPin(u"PIN02"_s);
    }));
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"データベースに問題が発生し修正できませんでした。"_s});
    EXPECT_TRUE(Globals().OperatorAuthenticated);
    EXPECT_EQ(Globals().Staff.LaunchingStaffCode, u"00002"_s);
}

TEST_F(PinDialog, ClicksOnTitlesAndOnTheNameMoveTheFocus) {
    Ask([](PinDialogDriver& user) {
        user.Click(u"itm_ttl_暗証番号"_s);
        EXPECT_EQ(user.Focused(), u"担当者コード"_s) << "no PIN before a code";
        EnterCode(user, u"00002"_s);
        user.Click(u"itm_ttl_担当者コード"_s);
        EXPECT_EQ(user.Focused(), u"担当者コード"_s);
        for (const QString& place : {u"itm_ttl_暗証番号"_s, u"itm_ttl_担当者名"_s, u"担当者名"_s}) {
            user.Item(u"担当者コード"_s).SetFocus();
            user.Click(place);
            EXPECT_EQ(user.Focused(), u"暗証番号"_s) << place.toStdString();
        }
        user.Click(u"btn_キャンセル"_s);
    });
    EXPECT_EQ(opened, 1);
}

TEST_F(PinDialog, TheCodeTakesFiveDigitsAndNothingElse) {
    Ask([](PinDialogDriver& user) {
        user.Type(u"0'a-１2345678"_s);
        EXPECT_EQ(user.Text(u"担当者コード"_s), u"01234"_s);
        user.Click(u"btn_キャンセル"_s);
    });
    EXPECT_EQ(opened, 1);
}

TEST_F(PinDialog, NullsOfAPersonAreNoNameNoLevelAndRightsThatAllow) {
    installation.General().Execute(u"UPDATE M担当者 SET 氏名 = NULL WHERE コード = '00002'"_s);
    StaffIdentity& staff = Globals().Staff;
    staff.LoginId = u"before"_s;
    staff.AccessLevel = 5;
    staff.ClassRights.fill(u"1"_s);
    staff.OperationRights.fill(u"1"_s);
    Ask([](PinDialogDriver& user) {
        EnterCode(user, u"00002"_s);
        EXPECT_EQ(user.Text(u"担当者名"_s), QString());
        user.Click(u"btn_キャンセル"_s);
    });
    EXPECT_EQ(staff.LoginId, QString());
    EXPECT_EQ(staff.AccessLevel, 0);
    for (const QString& right : staff.ClassRights) EXPECT_EQ(right, u"0"_s);
    for (const QString& right : staff.OperationRights) EXPECT_EQ(right, QString());
}

TEST_F(PinDialog, FailedLookUpsLeaveTheirStatementsWordForWordAndFindNoUser) {
    installation.General().Execute(u"DROP TABLE M担当者"_s);
    Globals().ScopeOfficeCode = u"001"_s;
    Ask([](PinDialogDriver& user) {
        EnterCode(user, u"12"_s);
        user.Click(u"btn_キャンセル"_s);
    });
    const QString conditions =
        u" AND (M担当者.在籍区分 = ''0'' OR (M担当者.在籍区分 = ''1'' AND M担当者.退社日付 <>''''"
        u" AND M担当者.退社日付 > ''20261121'')) AND (M担当者.事業所コード = ''001'' OR M担当者.事業所コード = ''000'')"_s;
    ASSERT_EQ(History().size(), 2);
    EXPECT_TRUE(
        History()[0].endsWith(u"SELECT M担当者.* FROM M担当者 WHERE M担当者.ログインID = ''nobody''"_s + conditions))
        << History()[0].toStdString();
    EXPECT_TRUE(History()[1].endsWith(u"SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = ''00012''"_s + conditions))
        << History()[1].toStdString();
}

TEST_F(PinDialog, ALoginNameWithAnApostropheFindsItsPerson) {
    SetStaff(u"ログインID = 'O''Neil'"_s);
    Globals().OsUserName = u"o'neil"_s;
    EXPECT_TRUE(Ask([](PinDialogDriver& user) {
        EXPECT_EQ(user.Text(u"担当者コード"_s), u"00001"_s);
        EXPECT_EQ(user.Focused(), u"暗証番号"_s);
        user.EnterPin(u"PIN01"_s);
    }));
    EXPECT_EQ(StoredSignIn(), u"00001"_s);
    EXPECT_FALSE(History().first().startsWith(u"エラー "_s)) << History().first().toStdString();
}

TEST_F(PinDialog, AnUnknownLoginNameWithAnApostropheIsNoErrorAndACodeSignsIn) {
    Globals().OsUserName = u"o'neil"_s;
    EXPECT_TRUE(Ask([](PinDialogDriver& user) {
        EXPECT_EQ(user.Focused(), u"担当者コード"_s);
        EnterCode(user, u"00002"_s);
        user.EnterPin(u"PIN02"_s);
    }));
    EXPECT_EQ(History().filter(u"エラー"_s), QStringList());
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}
