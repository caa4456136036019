#include "registration/RegistrationFixture.h"

using namespace Qt::StringLiterals;

namespace {

class RegistrationStart : public RegistrationTest {
  protected:
    /// Runs a start that is refused and returns the message. The start message must be answered all the same.
    QString RefusalOf(const QString& command) {
        LeaveStartMessage(command.leftJustified(8));
        Start(command);
        EXPECT_EQ(services.processes.ends, QList<int>{0});
        EXPECT_FALSE(Window().isVisible());
        EXPECT_EQ(Messages(), EndMessage(command.leftJustified(8)));
        EXPECT_EQ(services.dialogs.shown.size(), 1);
        return services.dialogs.shown.isEmpty() ? QString() : services.dialogs.shown.first().text;
    }
};

}  // namespace

TEST(RegistrationCommand, IsThreeCharactersOfOfficeAndUpToFiveOfStaffCode) {
    struct Case {
        QString line, office, staff;
    };
    for (const Case& c : {Case{u"00000007"_s, u"000"_s, u"00007"_s}, Case{u"  00112  "_s, u"001"_s, u"12"_s},
                          Case{u"0010'1"_s, u"001"_s, u"0'1"_s}, Case{u"001000079"_s, u"001"_s, u"00007"_s},
                          Case{u"000 7"_s, u"000"_s, u" 7"_s}, Case{u"00012  9"_s, u"000"_s, u"12  9"_s},
                          Case{u"001"_s, u"001"_s, u""_s}, Case{u""_s, u""_s, u""_s}}) {
        const RegistrationCommand command = ParseRegistrationCommand(c.line);
        EXPECT_EQ(command.office, c.office);
        EXPECT_EQ(command.staff, c.staff);
    }
}

TEST_F(RegistrationStart, TheRunIsInTheHistoryUnderItsOwnName) {
    Start();
    Click(u"btn_終了"_s);
    EXPECT_EQ(installation.Configuration().Rows(u"SELECT プログラムID, 摘要 FROM プログラム稼動履歴 ORDER BY rowid"_s),
              (QList<QStringList>{{u"要員台帳更新"_s, u"開始 00000007"_s}, {u"要員台帳更新"_s, u"終了"_s}}));
    EXPECT_EQ(services.processes.ends, QList<int>{0});
}

TEST_F(RegistrationStart, TheStartMessageIsTakenAndAnsweredAtTheEnd) {
    LeaveStartMessage(u"00000007"_s);
    Start();
    EXPECT_EQ(Messages(), QList<QStringList>());
    Window().close();
    EXPECT_EQ(Messages(), EndMessage(u"00000007"_s));
}

TEST_F(RegistrationStart, ASaveAndADeletionAnswerTheStartMessage) {
    LeaveStartMessage(u"00000007"_s);
    Start();
    Click(u"btn_保存"_s);
    EXPECT_EQ(Messages(), EndMessage(u"00000007"_s));
    installation.Configuration().Execute(u"DELETE FROM プログラム連携情報"_s);
    delete std::exchange(Globals().MainForm, nullptr);
    LeaveStartMessage(u"00000007"_s);
    Start();
    services.dialogs.answers = {true};
    Click(u"btn_削除"_s);
    EXPECT_EQ(Messages(), EndMessage(u"00000007"_s));
}

TEST_F(RegistrationStart, BlanksThatTheCommandLineLosesAreFilledInAgainToFindTheMessage) {
    installation.General().Execute(u"UPDATE M担当者 SET コード = '7A' WHERE コード = '00007'"_s);
    LeaveStartMessage(u"0007A   "_s);
    Start(u"0007A"_s);
    EXPECT_EQ(Messages(), QList<QStringList>());
    EXPECT_EQ(Caption(u"担当者コード"_s), u"7A"_s);
    Window().close();
    EXPECT_EQ(Messages(), EndMessage(u"0007A   "_s));
}

TEST_F(RegistrationStart, ACodeWithABlankInFrontIsAPersonLikeAnyOther) {
    installation.General().Execute(u"UPDATE M担当者 SET コード = ' 7' WHERE コード = '00007'"_s);
    LeaveStartMessage(u"000 7   "_s);
    Start(u"000 7"_s);
    EXPECT_EQ(Caption(u"担当者コード"_s), u" 7"_s);
    Window().close();
    EXPECT_EQ(Messages(), EndMessage(u"000 7   "_s));
}

TEST_F(RegistrationStart, AMessageOlderThanAMinuteStaysAndIsNotAnswered) {
    LeaveStartMessage(u"00000007"_s, u"20261121 092914"_s);
    Start();
    Window().close();
    ASSERT_EQ(Messages().size(), 1);
    EXPECT_EQ(Messages().first().at(4), u"00"_s);
}

TEST_F(RegistrationStart, WithoutAMessageNoneIsWritten) {
    Start();
    Window().close();
    EXPECT_EQ(Messages(), QList<QStringList>());
}

TEST_F(RegistrationStart, AnUnknownStaffCodeIsRefusedAndAnswered) {
    EXPECT_EQ(RefusalOf(u"00099999"_s), u"担当者コード 99999 は登録されていません。"_s);
    EXPECT_EQ(ViewKinds(), QStringList());
}

TEST_F(RegistrationStart, APersonWhoCannotBeReadIsNotSaidToBeMissing) {
    // abs() overflows for this row only.
    installation.General().Execute(
        u"ALTER TABLE M担当者 RENAME TO 別; CREATE VIEW M担当者 AS SELECT * FROM 別"
        u" WHERE abs(-9223372036854775807 - (コード = '00007')) > 0"_s);
    EXPECT_EQ(RefusalOf(u"00000007"_s), u"データベースが使用できません。"_s);
}

TEST_F(RegistrationStart, AMissingStaffCodeIsRefusedAndAnswered) {
    EXPECT_EQ(RefusalOf(u"000"_s), u"担当者コードが指定されていません。"_s);
}

TEST_F(RegistrationStart, AMissingGeneralDatabaseIsRefusedAndAnswered) {
    installation.SetDefinition(u"データソース名"_s, installation.Root() + u"/none"_s);
    EXPECT_EQ(RefusalOf(u"00000007"_s), u"データベースが使用できません。"_s);
}

TEST_F(RegistrationStart, AMissingCompanyIsRefusedAndAnswered) {
    installation.General().Execute(u"DELETE FROM Mユーザ"_s);
    EXPECT_EQ(RefusalOf(u"00000007"_s), u"ユーザ情報が使用できません。"_s);
}
