#include <QAbstractItemView>
#include <QComboBox>

#include "access/PinDialogDriver.h"
#include "registration/RegistrationFixture.h"
#include "support/FocusMarks.h"

using namespace Qt::StringLiterals;

namespace {

const QString kLost = u"修正が保存されていません。終了しますか?"_s;
const QString kChangedElsewhere = u"この担当者は他の端末で修正されています。入力を取り消して読み直しますか?"_s;

class RegistrationForm : public RegistrationTest {
  protected:
    void ChangeElsewhere() const {
        installation.General().Execute(
            u"UPDATE M担当者 SET 電話 = '06-5555-0200', 更新日付 = '20261121 093010'"
            u" WHERE コード = '00007'"_s);
    }
    void SetRights(const QString& assignments) const {
        installation.General().Execute(
            u"UPDATE Mユーザ SET 暗証番号有無 = '1'; UPDATE M事業所 SET 暗証番号有無 = '1';"
            u"UPDATE M担当者 SET %1 WHERE コード = '00001'"_s.arg(assignments));
    }
};

}  // namespace

TEST_F(RegistrationForm, EveryStopShowsThatItHasTheFocus) {
    const SuiteLook look;
    Start();
    const QStringList stops = ExpectFocusMarks(Window());
    EXPECT_EQ(stops.size(), static_cast<qsizetype>(kStaffItemCount) + 3);
    EXPECT_EQ(stops.last(3), QStringList({u"btn_保存"_s, u"btn_削除"_s, u"btn_終了"_s}));
}

TEST_F(RegistrationForm, EnterAnswersNoToItsQuestions) {
    Start();
    EXPECT_EQ(services.dialogs.defaultAnswer, platform::Dialogs::Answer::No);
}

TEST_F(RegistrationForm, ShowsThePersonWithNamesBesideCodesAndErasBesideDates) {
    Start();
    EXPECT_EQ(Window().windowTitle(), u"要員台帳更新"_s);
    EXPECT_EQ(Caption(u"担当者コード"_s), u"00007"_s);
    for (const StaffItem& item : kStaffItems) {
        const QString column = item.column.toString();
        EXPECT_EQ(Text(column), Stored(column)) << column.toStdString();
    }
    const QList<std::pair<QString, QString>> names = {{u"性別区分名"_s, u"男"_s},      {u"事業所名"_s, u"本社"_s},
                                                      {u"部門名"_s, u"総務部"_s},      {u"セクション名"_s, u"総務課"_s},
                                                      {u"役職名"_s, u"課長"_s},        {u"在籍区分名"_s, u"在籍"_s},
                                                      {u"社員区分名"_s, u"契約社員"_s}};
    for (const auto& [list, name] : names) EXPECT_EQ(Text(list), name);
    EXPECT_EQ(Caption(u"生年月日年号"_s), u"昭和40年04月03日"_s);
    EXPECT_EQ(Caption(u"入社日付年号"_s), u"平成01年04月01日"_s);
    EXPECT_EQ(Caption(u"退社日付年号"_s), QString());
    EXPECT_EQ(Caption(u"登録日付"_s), u"2005/04/01 09:00:00"_s);
    EXPECT_EQ(Caption(u"更新日付"_s), QString());
    EXPECT_EQ(Focused(), u"氏名"_s);
}

TEST_F(RegistrationForm, LookingIsLoggedAtOnce) {
    Start();
    EXPECT_EQ(installation.General().Rows(u"SELECT * FROM T閲覧"_s),
              (QList<QStringList>{{u"00001"_s, u"要員台帳更新"_s, u""_s, u""_s, u""_s, u"00007"_s, u"20261121"_s,
                                   u"093015"_s, u"0"_s}}));
}

TEST_F(RegistrationForm, EnterGoesThroughTheItemsInTheirOrderAndOnToTheButtons) {
    Start();
    QStringList order;
    for (const StaffItem& item : kStaffItems) order << item.column.toString();
    order << u"btn_保存"_s;
    for (const QString& name : order) {
        EXPECT_EQ(Focused(), name);
        Press(Qt::Key_Return);
    }
    EXPECT_TRUE(HasEnded()) << "Enter presses the button it comes to";
}

TEST_F(RegistrationForm, ATypedCodeIsFilledWithZerosAndFindsItsName) {
    Start();
    Enter(u"部門コード"_s, u"20"_s);
    EXPECT_EQ(Text(u"部門コード"_s), u"020"_s);
    EXPECT_EQ(Text(u"部門名"_s), u"人事部"_s);
    Enter(u"部門コード"_s, u"999"_s);
    EXPECT_EQ(Text(u"部門名"_s), QString());
    EXPECT_EQ(Text(u"部門コード"_s), u"999"_s);
}

TEST_F(RegistrationForm, AChosenNameWritesItsCode) {
    Start();
    Item(u"役職名"_s).Widget().setFocus(Qt::MouseFocusReason);
    QTest::keyClick(&Item(u"役職名"_s).Widget(), Qt::Key_Up);
    EXPECT_EQ(Text(u"役職コード"_s), u"25"_s);
    EXPECT_EQ(Text(u"役職名"_s), u"次長"_s);
}

TEST_F(RegistrationForm, CtrlOpensTheListOfACode) {
    Start();
    Click(u"事業所コード"_s);
    Press(Qt::Key_Control);
    auto& list = static_cast<QComboBox&>(Item(u"事業所名"_s).Widget());
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.view()->isVisible(); }));
    list.hidePopup();
}

TEST_F(RegistrationForm, TheEraFollowsWhatIsTypedAndEmptiesWhereThereIsNoSuchDay) {
    Start();
    Enter(u"生年月日"_s, u"20190501"_s);
    EXPECT_EQ(Caption(u"生年月日年号"_s), u"令和01年05月01日"_s);
    Enter(u"生年月日"_s, u"20190431"_s);
    EXPECT_EQ(Caption(u"生年月日年号"_s), QString());
}

TEST_F(RegistrationForm, TheNoticeCountsWhatIsTooLongWhileItIsTyped) {
    Start();
    Enter(u"氏名"_s, QString(12, u'字'));
    EXPECT_EQ(Caption(u"お知らせ"_s), u"2文字オーバーです。"_s);
    Enter(u"氏名"_s, QString(10, u'字'));
    EXPECT_EQ(Caption(u"お知らせ"_s), QString());
}

TEST_F(RegistrationForm, EveryBadInputIsNamedGetsTheFocusAndIsNotSaved) {
    Start();
    const QStringList before = StoredItems();
    struct Case {
        QString item, input, good, message;
    };
    const QList<Case> cases = {
        {u"氏名"_s, u""_s, u"山田　太郎"_s, u"氏名を入力してください。"_s},
        {u"氏名"_s, QString(11, u'字'), u"山田　太郎"_s, u"氏名は全角10文字(半角20文字)以内で入力してください。"_s},
        {u"氏名"_s, u"鷗"_s, u"山田　太郎"_s, u"氏名に使用できない文字「鷗」があります。"_s},
        {u"部門コード"_s, u"999"_s, u"010"_s, u"部門 999 は登録されていません。"_s},
        {u"社員区分"_s, u"9"_s, u"1"_s, u"社員区分 9 は登録されていません。"_s},
        {u"退社日付"_s, u"20260229"_s, u""_s, u"退社日付 20260229 は正しい日付ではありません。"_s},
    };
    for (const Case& c : cases) {
        Enter(c.item, c.input);
        Click(u"btn_保存"_s);
        ASSERT_FALSE(services.dialogs.shown.isEmpty());
        EXPECT_EQ(services.dialogs.shown.last().text, c.message);
        EXPECT_EQ(services.dialogs.shown.last().title, u"要員台帳更新"_s);
        EXPECT_EQ(Focused(), c.item);
        Enter(c.item, c.good);
    }
    EXPECT_EQ(services.dialogs.shown.size(), cases.size());
    EXPECT_FALSE(HasEnded());
    EXPECT_EQ(StoredItems(), before);
    EXPECT_EQ(ViewKinds(), QStringList{u"0"_s});
}

TEST_F(RegistrationForm, SavingWritesLogsAndEndsTheProgram) {
    Start();
    QStringList expected = StoredItems();
    expected[0] = u"田中 O'Hara"_s;
    Enter(u"氏名"_s, u"田中 O'Hara"_s);
    Click(u"btn_保存"_s);
    EXPECT_TRUE(HasEnded());
    EXPECT_EQ(StoredItems(), expected);
    EXPECT_EQ(Stored(u"更新日付"_s), u"20261121 093015"_s);
    EXPECT_EQ(ViewKinds(), (QStringList{u"0"_s, u"1"_s}));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(RegistrationForm, AFailedSaveIsReportedAndKeepsWhatWasTyped) {
    Start();
    installation.General().Execute(u"DROP TABLE T閲覧"_s);
    Enter(u"氏名"_s, u"田中"_s);
    Click(u"btn_保存"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"データベースに問題が発生し修正できませんでした。"_s});
    EXPECT_FALSE(HasEnded());
    EXPECT_EQ(Text(u"氏名"_s), u"田中"_s);
    EXPECT_EQ(Stored(u"氏名"_s), u"山田　太郎"_s);
}

TEST_F(RegistrationForm, AChangeByAnotherProgramIsOfferedToBeReadAgain) {
    Start();
    Enter(u"氏名"_s, u"田中"_s);
    ChangeElsewhere();
    Click(u"btn_保存"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kChangedElsewhere});
    EXPECT_EQ(Text(u"氏名"_s), u"田中"_s) << "いいえ keeps what was typed";
    services.dialogs.answers = {true};
    Click(u"btn_保存"_s);
    EXPECT_EQ(Text(u"氏名"_s), u"山田　太郎"_s);
    EXPECT_EQ(Text(u"電話"_s), u"06-5555-0200"_s);
    EXPECT_EQ(Caption(u"更新日付"_s), u"2026/11/21 09:30:10"_s);
    Enter(u"氏名"_s, u"田中"_s);
    Click(u"btn_保存"_s);
    EXPECT_TRUE(HasEnded());
    EXPECT_EQ(Stored(u"氏名"_s) + Stored(u"電話"_s), u"田中06-5555-0200"_s);
}

TEST_F(RegistrationForm, AFailureToReadAgainIsReportedAndKeepsWhatWasTyped) {
    Start();
    Enter(u"氏名"_s, u"田中"_s);
    ChangeElsewhere();
    services.dialogs.answers = {true};
    services.dialogs.whileAsked = [this] { installation.General().Execute(u"ALTER TABLE M担当者 RENAME TO 別"_s); };
    Click(u"btn_保存"_s);
    EXPECT_EQ(services.dialogs.Texts(),
              (QStringList{kChangedElsewhere, u"データベースに問題が発生し読み込めませんでした。"_s}));
    EXPECT_FALSE(HasEnded());
    EXPECT_EQ(Text(u"氏名"_s), u"田中"_s);
}

TEST_F(RegistrationForm, APersonDeletedWhileTheQuestionIsUpEndsTheProgram) {
    Start();
    ChangeElsewhere();
    services.dialogs.answers = {true};
    services.dialogs.whileAsked = [this] {
        installation.General().Execute(u"DELETE FROM M担当者 WHERE コード = '00007'"_s);
    };
    Click(u"btn_保存"_s);
    EXPECT_EQ(services.dialogs.Texts(),
              (QStringList{kChangedElsewhere, u"この担当者は他の端末で削除されています。"_s}));
    EXPECT_TRUE(HasEnded());
}

TEST_F(RegistrationForm, ADeletionByAnotherProgramIsReportedAndEndsTheProgram) {
    Start();
    installation.General().Execute(u"DELETE FROM M担当者 WHERE コード = '00007'"_s);
    Enter(u"氏名"_s, u"田中"_s);
    Click(u"btn_保存"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"この担当者は他の端末で削除されています。"_s});
    EXPECT_TRUE(HasEnded());
}

TEST_F(RegistrationForm, DeletionAsksFirstAndEndsTheProgram) {
    Start();
    Click(u"btn_削除"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"担当者コード 00007 山田　太郎 を削除しますか?"_s});
    EXPECT_FALSE(HasEnded());
    EXPECT_EQ(Stored(u"氏名"_s), u"山田　太郎"_s);
    services.dialogs.answers = {true};
    Click(u"btn_削除"_s);
    EXPECT_TRUE(HasEnded());
    EXPECT_TRUE(Stored(u"氏名"_s).isNull());
}

TEST_F(RegistrationForm, EndingAsksOnlyWhereSomethingWouldBeLost) {
    Start();
    const std::function<void()> ways[] = {[] { Click(u"btn_終了"_s); }, [] { Press(Qt::Key_Escape); },
                                          [] { Window().close(); }};
    Enter(u"電話"_s, u"03"_s);
    for (const auto& way : ways) {
        way();
        EXPECT_EQ(services.dialogs.shown.takeLast().text, kLost);
        EXPECT_FALSE(HasEnded());
        EXPECT_TRUE(Window().isVisible());
    }
    services.dialogs.answers = {true};
    Window().close();
    EXPECT_EQ(services.processes.ends.size(), 1);
    services.dialogs.shown.clear();
    Enter(u"電話"_s, u"03-5555-0100"_s);
    for (const auto& way : ways) way();
    EXPECT_EQ(services.processes.ends.size(), 4);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_EQ(Stored(u"電話"_s), u"03-5555-0100"_s);
}

TEST_F(RegistrationForm, WhoMayNotChangeOrDeleteIsAskedForSomebodyElsesPinAndNothingIsWritten) {
    SetRights(u"修正許可 = '1', 削除許可 = '1'"_s);
    PinDialogDriver driver([](PinDialogDriver& user) { user.Click(u"btn_キャンセル"_s); });
    Start();
    EXPECT_EQ(driver.Opened(), 0);
    Enter(u"氏名"_s, u"田中"_s);
    Click(u"btn_保存"_s);
    EXPECT_EQ(driver.Opened(), 1);
    services.dialogs.answers = {true};
    Click(u"btn_削除"_s);
    EXPECT_EQ(driver.Opened(), 2);
    EXPECT_FALSE(HasEnded());
    EXPECT_EQ(Stored(u"氏名"_s), u"山田　太郎"_s);
}
