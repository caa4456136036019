#include "access/ProgramLinks.h"

#include <QTimer>

#include "data/DataFixture.h"
#include "screen/Form.h"
#include "support/LinkAnswers.h"
#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

namespace {

const QString kThis = u"要員名簿照会"_s;
const QString kSibling = u"要員台帳更新"_s;
const QString kMenu = u"販路推進"_s;
const QString kNow = u"20261121 093015"_s;  // the test clock's time
const QString kKey = u"00000012"_s;

class ProgramLinks : public WithConnections {
  protected:
    ProgramLinks() : form_(u"frm"_s) { Globals().MainForm = &form_; }
    ~ProgramLinks() override { Globals().MainForm = nullptr; }

    void Add(const LinkRow& row) const { AddLinkRow(installation.Configuration(), row); }
    /// Adds a start message from the menu to this program.
    void AddStart(const QString& sentAt, const QString& key = kKey) const {
        Add({.sentAt = sentAt, .sender = kMenu, .receiver = kThis, .kind = u"00"_s, .key = key});
    }
    QList<QStringList> Rows() const { return LinkRows(installation.Configuration()); }
    /// One column of the remaining messages.
    QStringList Left(int column) const {
        QStringList values;
        for (const QStringList& row : Rows()) values << row[column];
        return values;
    }
    QStringList KeysLeft() const { return Left(5); }

    Form form_;
};

QString Reply(const QString& key = kKey, const QString& earliest = kNow) {
    return ReceiveEndLink(kThis, kSibling, key, earliest);
}

}  // namespace

TEST_F(ProgramLinks, StartMessageFillsEveryColumn) {
    SendStartLink(kThis, kSibling, u"000123  "_s);
    EXPECT_EQ(Rows(), (QList<QStringList>{{kNow, kThis, kSibling, kNow, u"00"_s, u"000123  "_s, u""_s, u"000"_s,
                                           u"00001"_s, u"tester"_s}}));
}

TEST_F(ProgramLinks, MessageWithAStampInAnotherFormIsNotFoundAndStays) {
    const QString other = u"2026/11/21 09:30:20"_s;
    Add({.sentAt = other, .key = kKey});
    EXPECT_EQ(Reply(), QString());
    AddStart(other);
    ReceiveStartLink(kKey, kNow);
    EXPECT_EQ(Globals().LinkSenderId, QString());
    EXPECT_EQ(Globals().LinkStartInfo, QString());
    EXPECT_EQ(Left(0), (QStringList{other, other}));
}

TEST_F(ProgramLinks, StaffMemberOfAMessageIsReadAgainFromTheConfiguration) {
    installation.SetEnvironment(u"起動担当者コード"_s, u"00077"_s);
    SendStartLink(kThis, kSibling, kKey);
    WriteEndLink({});
    EXPECT_EQ(Left(8), (QStringList{u"00077"_s, u"00077"_s}));
}

TEST_F(ProgramLinks, EndMessageKeepsTheIdsOfItsStartMessageAndDoesNotSwapThem) {
    Globals().LinkSenderId = kMenu;
    Globals().LinkStartInfo = kKey;
    WriteEndLink(u"済"_s);
    EXPECT_EQ(
        Rows(),
        (QList<QStringList>{{kNow, kMenu, kThis, kNow, u"99"_s, kKey, u"済"_s, u"000"_s, u"00001"_s, u"tester"_s}}));
    EXPECT_EQ(Globals().LinkEndInfo, u"済"_s);
}

TEST_F(ProgramLinks, EndMessageWithoutTextIsWrittenAllTheSame) {
    Globals().LinkSenderId = kMenu;
    Globals().LinkStartInfo = kKey;
    WriteEndLink(Globals().LinkEndInfo);
    EXPECT_EQ(
        Rows(),
        (QList<QStringList>{{kNow, kMenu, kThis, kNow, u"99"_s, kKey, u""_s, u"000"_s, u"00001"_s, u"tester"_s}}));
}

TEST_F(ProgramLinks, BothEndsOfAnExchangeSearchWithTheSamePair) {
    SendStartLink(kThis, kSibling, kKey);
    Globals().ProgramId = kSibling;
    ReceiveStartLink(kKey, kNow);
    EXPECT_EQ(Globals().LinkSenderId, kThis);
    EXPECT_EQ(Globals().LinkStartInfo, kKey);
    EXPECT_EQ(KeysLeft(), QStringList());
    WriteEndLink(u"済"_s);
    Globals().ProgramId = kThis;
    Globals().LinkEndInfo.clear();
    EXPECT_EQ(Reply(), kKey);
    EXPECT_EQ(Globals().LinkEndInfo, u"済"_s);
    EXPECT_EQ(KeysLeft(), QStringList());
}

TEST_F(ProgramLinks, StartMessageIsTakenFromTheEarliestTimeOn) {
    AddStart(u"20261121 092915"_s);
    ReceiveStartLink(kKey, u"20261121 092916"_s);
    EXPECT_EQ(Globals().LinkSenderId, QString());
    EXPECT_EQ(Globals().LinkStartInfo, QString());
    EXPECT_EQ(KeysLeft(), QStringList{kKey}) << "a stale message stays";
    ReceiveStartLink(kKey, u"20261121 092915"_s);
    EXPECT_EQ(Globals().LinkSenderId, kMenu);
    EXPECT_EQ(Globals().LinkStartInfo, kKey);
    EXPECT_EQ(KeysLeft(), QStringList());
}

TEST_F(ProgramLinks, StartMessageForSomebodyElseIsLeftAlone) {
    Add({.sentAt = kNow, .sender = kMenu, .receiver = kSibling, .kind = u"00"_s, .key = kKey});
    Add({.sentAt = kNow, .sender = kMenu, .receiver = kThis, .kind = u"99"_s, .key = kKey});
    AddStart(kNow, u"00000013"_s);
    Globals().LinkSenderId = u"old"_s;
    ReceiveStartLink(kKey, kNow);
    EXPECT_EQ(Globals().LinkSenderId, QString()) << "emptied whatever comes";
    EXPECT_EQ(Globals().LinkStartInfo, QString());
    EXPECT_EQ(Rows().size(), 3);
}

TEST_F(ProgramLinks, OnlyTheFirstOfTwoStartMessagesWithOneKeyIsTaken) {
    AddStart(u"20261121 093010"_s);
    AddStart(u"20261121 093011"_s);
    ReceiveStartLink(kKey, u"20261121 093000"_s);
    EXPECT_EQ(Left(0), QStringList{u"20261121 093011"_s});
}

TEST_F(ProgramLinks, StartMessagesOfOneSecondGoTogetherSinceTheKeyIsNotNamed) {
    AddStart(kNow);
    AddStart(kNow);
    AddStart(kNow, u"00000013"_s);
    AddStart(u"20261121 093014"_s, u"00000014"_s);
    ReceiveStartLink(kKey, kNow);
    EXPECT_EQ(KeysLeft(), QStringList{u"00000014"_s});
}

TEST_F(ProgramLinks, ReplyOfTheSameSecondWithAnotherKeyStays) {
    Add({.sentAt = kNow, .key = u"00000013"_s});
    Add({.sentAt = kNow, .key = kKey});
    EXPECT_EQ(Reply(), kKey);
    EXPECT_EQ(KeysLeft(), QStringList{u"00000013"_s});
}

TEST_F(ProgramLinks, ReplyFromBeforeTheSendTimeIsIgnored) {
    Add({.sentAt = u"20261121 093014"_s, .key = kKey});
    EXPECT_EQ(Reply(), QString());
    EXPECT_EQ(KeysLeft(), QStringList{kKey});
}

TEST_F(ProgramLinks, StartMessageIsNoReply) {
    Add({.sentAt = kNow, .kind = u"00"_s, .key = kKey});
    Add({.sentAt = kNow, .sender = kSibling, .receiver = kThis, .key = kKey});
    EXPECT_EQ(Reply(), QString());
    EXPECT_EQ(Rows().size(), 2);
}

TEST_F(ProgramLinks, ReplyWithoutATextColumnCountsAsEmpty) {
    Globals().LinkEndInfo = u"old"_s;
    Add({.sentAt = kNow, .key = kKey, .endText = QString()});
    EXPECT_EQ(Reply(), kKey);
    EXPECT_EQ(Globals().LinkEndInfo, QString());
}

TEST_F(ProgramLinks, ClientsWithDifferentKeysSentInDifferentSecondsLeaveEachOthersMessages) {
    SendStartLink(kThis, kSibling, kKey);
    const QString other = u"00100012"_s, later = u"20261121 093016"_s;
    Add({.sentAt = later, .kind = u"00"_s, .key = other});
    Globals().ProgramId = kSibling;
    ReceiveStartLink(kKey, kNow);
    EXPECT_EQ(KeysLeft(), QStringList{other});
    WriteEndLink({});
    Add({.sentAt = later, .key = other});
    EXPECT_EQ(Reply(), kKey);
    EXPECT_EQ(KeysLeft(), (QStringList{other, other}));
}

TEST_F(ProgramLinks, KeyWithQuotesAndTrailingBlanksGoesThereAndBack) {
    const QString key = u"0'0''1  "_s;
    SendStartLink(kThis, kSibling, key);
    EXPECT_EQ(KeysLeft(), QStringList{key});
    Globals().ProgramId = kSibling;
    ReceiveStartLink(key, kNow);
    EXPECT_EQ(Globals().LinkStartInfo, key);
    WriteEndLink(u"it's"_s);
    EXPECT_EQ(Reply(key), key);
    EXPECT_EQ(Globals().LinkEndInfo, u"it's"_s);
    EXPECT_EQ(KeysLeft(), QStringList());
    EXPECT_EQ(History(), QStringList());
}

TEST_F(ProgramLinks, QuotesInTheCommandLineTakeNoOtherMessage) {
    AddStart(kNow);
    ReceiveStartLink(u"x' OR ''='"_s, kNow);
    EXPECT_EQ(Globals().LinkStartInfo, QString());
    EXPECT_EQ(KeysLeft(), QStringList{kKey});
}

TEST_F(ProgramLinks, FailedStatementLeavesARowAndNothingElse) {
    installation.Configuration().Execute(u"DROP TABLE プログラム連携情報"_s);
    SendStartLink(kThis, kSibling, kKey);
    EXPECT_EQ(Reply(), QString());
    ReceiveStartLink(kKey, kNow);
    const QString failure = u"エラー no such table: プログラム連携情報"_s;
    ASSERT_EQ(History().size(), 3);
    EXPECT_EQ(History()[0],
              failure +
                  u"INSERT INTO プログラム連携情報 (発信日時,発信プログラムID,受信プログラムID,受信期限,連携区分,"
                  u"起動連携情報,終了連携情報,運用事業所コード,起動担当者コード,ユーザID)VALUES "
                  u"(''20261121 093015'', ''要員名簿照会'', ''要員台帳更新'', ''20261121 093015'', ''00'', "
                  u"''00000012'', '''', ''000'', ''00001'', ''tester'')"_s);
    EXPECT_EQ(History()[1], failure +
                                u"SELECT * FROM プログラム連携情報 WHERE 発信日時 >= ''20261121 093015'' AND "
                                u"発信プログラムID = ''要員名簿照会'' AND 受信プログラムID = ''要員台帳更新'' "
                                u"AND 起動連携情報 = ''00000012'' AND 連携区分 = ''99''"_s);
    EXPECT_EQ(History()[2], failure +
                                u"SELECT * FROM プログラム連携情報 WHERE 発信日時 >= ''20261121 093015'' AND "
                                u"受信プログラムID = ''要員名簿照会'' AND 起動連携情報 = ''00000012'' AND "
                                u"連携区分 = ''00''"_s);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(ProgramLinks, DeletionOfAStartMessageNamesFourColumnsAndThatOfAReplyItsKeyBesides) {
    installation.Configuration().Execute(
        u"CREATE TRIGGER 拒否 BEFORE DELETE ON プログラム連携情報 BEGIN SELECT RAISE(ABORT, '拒否'); END"_s);
    AddStart(kNow);
    ReceiveStartLink(kKey, kNow);
    Add({.sentAt = kNow, .key = kKey});
    EXPECT_EQ(Reply(), kKey) << "a reply that cannot be deleted is one all the same";
    EXPECT_EQ(Globals().LinkStartInfo, kKey);
    EXPECT_EQ(History(),
              (QStringList{u"エラー 拒否DELETE FROM プログラム連携情報 WHERE 発信日時 = ''20261121 093015'' AND "
                           u"発信プログラムID = ''販路推進'' AND 受信プログラムID = ''要員名簿照会'' AND "
                           u"連携区分 = ''00''"_s,
                           u"エラー 拒否DELETE FROM プログラム連携情報 WHERE 発信日時 = ''20261121 093015'' AND "
                           u"発信プログラムID = ''要員名簿照会'' AND 受信プログラムID = ''要員台帳更新'' AND "
                           u"起動連携情報 = ''00000012'' AND 連携区分 = ''99''"_s}));
}

TEST_F(ProgramLinks, EveryMessageWrittenIsFollowedByAFreshConnection) {
    for (const auto& write : {+[] { SendStartLink(kThis, kSibling, kKey); }, +[] { WriteEndLink({}); }}) {
        // A temporary table exists as long as its connection.
        Globals().ConfigConnection.Execute(u"CREATE TEMP TABLE mark (x)"_s);
        write();
        EXPECT_THROW(Globals().ConfigConnection.Execute(u"DROP TABLE mark"_s), database::DatabaseError);
        EXPECT_TRUE(Globals().ConfigConnectionOpen);
    }
    EXPECT_EQ(Rows().size(), 2);
}

TEST_F(ProgramLinks, AnswerIsSentAlsoWhenTheStaffMemberCannotBeRead) {
    installation.Configuration().Execute(u"DROP TABLE 動作環境定義"_s);
    Globals().LinkSenderId = kMenu;
    Globals().LinkStartInfo = kKey;
    WriteEndLink({});
    EXPECT_EQ(KeysLeft(), QStringList{kKey});
    EXPECT_EQ(Left(8), QStringList{u""_s});
}

TEST_F(ProgramLinks, SendingDisablesTheFormAndWaitsAMomentBeforeTheStart) {
    SendLinkMessage(kSibling, kKey);
    EXPECT_FALSE(form_.Enabled());
    EXPECT_FALSE(Globals().LinkWaiting);
    EXPECT_EQ(Left(1) + KeysLeft(), (QStringList{kThis, kKey}));
    EXPECT_EQ(services.clock.sleeps, QList<int>{100});
}

TEST_F(ProgramLinks, WaitEndsWithTheReplyAndEnablesTheForm) {
    form_.SetEnabled(false);
    Add({.sentAt = kNow, .key = kKey, .endText = u"済"_s});
    WaitForLinkedProgram(kSibling, kKey, kNow);
    EXPECT_TRUE(form_.Enabled());
    EXPECT_FALSE(Globals().LinkWaiting);
    EXPECT_EQ(Globals().LinkEndInfo, u"済"_s);
    EXPECT_EQ(services.clock.sleeps, QList<int>{20}) << "one pass";
    EXPECT_EQ(KeysLeft(), QStringList());
}

TEST_F(ProgramLinks, WaitLooksAgainAndAgainWithoutATimeOut) {
    constexpr int kPasses = 50;
    form_.SetEnabled(false);
    int passes = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] {
        EXPECT_TRUE(Globals().LinkWaiting);
        EXPECT_FALSE(form_.Enabled());
        services.clock.now = services.clock.now.addDays(1);
        if (++passes == kPasses) Add({.sentAt = TimeStamp(services.clock.now), .key = kKey});
    });
    turn.start(0);
    WaitForLinkedProgram(kSibling, kKey, kNow);
    EXPECT_GE(passes, kPasses);
    EXPECT_EQ(services.clock.sleeps, QList<int>(services.clock.sleeps.size(), 20));
}

TEST_F(ProgramLinks, PassWithoutAConnectionDoesNotLookAndTheWaitGoesOn) {
    const QString away = installation.Root() + u"/conf/away"_s;
    Add({.sentAt = kNow, .key = kKey});
    ASSERT_TRUE(QFile::rename(installation.Configuration().Path(), away));
    int passes = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] {
        if (++passes == 5) QFile::rename(away, installation.Configuration().Path());
    });
    turn.start(0);
    WaitForLinkedProgram(kSibling, kKey, kNow);
    EXPECT_GE(passes, 5);
    EXPECT_EQ(KeysLeft(), QStringList());
    EXPECT_EQ(History(), QStringList()) << "a reconnection fails without a trace";
}
