#include <QFile>

#include "access/StartUp.h"
#include "data/DataFixture.h"
#include "support/LinkAnswers.h"
#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

namespace {

const QString kCommand = u"000000999000999009900000"_s + u"99999"_s;
const QString kMenu = u"販路推進"_s;
const QString kThis = u"要員名簿照会"_s;

/// A start of the program, possibly with a start message of another program.
class StartLink : public InInstallation {
  protected:
    StartLink() { services.system.commandLine = kCommand; }

    void AddStart(int secondsAgo, const QString& key = kCommand) const {
        AddLinkRow(installation.Configuration(), {.sentAt = TimeStamp(services.clock.now.addSecs(-secondsAgo)),
                                                  .sender = kMenu,
                                                  .receiver = kThis,
                                                  .kind = u"00"_s,
                                                  .key = key});
    }
    QList<QStringList> Messages() const { return LinkRows(installation.Configuration()); }
};

}  // namespace

TEST_F(StartLink, StarterIsAnsweredAtTheEndWithAnEmptyText) {
    AddStart(3);
    ASSERT_TRUE(InitializeData());
    EXPECT_EQ(Globals().LinkSenderId, kMenu);
    EXPECT_EQ(Globals().LinkStartInfo, kCommand);
    EXPECT_EQ(Messages(), QList<QStringList>());
    services.clock.now = services.clock.now.addSecs(40);
    TerminateData();
    const QString now = TimeStamp(services.clock.now);
    EXPECT_EQ(
        Messages(),
        (QList<QStringList>{{now, kMenu, kThis, now, u"99"_s, kCommand, u""_s, u"000"_s, u"00001"_s, u"tester"_s}}));
    EXPECT_EQ(History(), (QStringList{u"開始 "_s + kCommand, u"終了"_s}));
}

TEST_F(StartLink, KeyIsTheTrimmedCommandLine) {
    services.system.commandLine = u"  "_s + kCommand + u"  "_s;
    AddStart(0);
    ASSERT_TRUE(InitializeData());
    EXPECT_EQ(Globals().LinkStartInfo, kCommand);
}

TEST_F(StartLink, StartMessageOlderThanAMinuteIsNotTakenAndNotAnswered) {
    AddStart(61);
    ASSERT_TRUE(InitializeData());
    TerminateData();
    EXPECT_EQ(Globals().LinkStartInfo, QString());
    ASSERT_EQ(Messages().size(), 1);
    EXPECT_EQ(Messages()[0][4], u"00"_s);
}

TEST_F(StartLink, StartMessageOfExactlyAMinuteIsTaken) {
    AddStart(60);
    ASSERT_TRUE(InitializeData());
    EXPECT_EQ(Globals().LinkStartInfo, kCommand);
}

TEST_F(StartLink, StartWithoutACommandLineAndWithoutAMessageAnswersNobody) {
    services.system.commandLine.clear();
    ASSERT_TRUE(InitializeData());
    EXPECT_EQ(Globals().LinkStartInfo, QString());
    TerminateData();
    EXPECT_EQ(Messages(), QList<QStringList>());
}

TEST_F(StartLink, MissingTableIsARunWithoutALink) {
    installation.Configuration().Execute(u"DROP TABLE プログラム連携情報"_s);
    EXPECT_TRUE(InitializeData());
    TerminateData();
    EXPECT_EQ(Globals().LinkStartInfo, QString());
    EXPECT_EQ(History().size(), 3);
    EXPECT_EQ(History().last(), u"終了"_s);
}

TEST_F(StartLink, RefusedStartIsAnsweredToo) {
    AddStart(3);
    installation.Configuration().Execute(u"UPDATE データベース定義 SET データソース名 = '/nowhere'"_s);
    EXPECT_FALSE(InitializeData());
    TerminateData();
    ASSERT_EQ(Messages().size(), 1);
    EXPECT_EQ(Messages()[0][4], u"99"_s);
}

TEST_F(StartLink, EndAfterTheConfigurationHasGoneAnswersNobodyAndEndsNormally) {
    AddStart(3);
    ASSERT_TRUE(InitializeData());
    ASSERT_TRUE(QFile::rename(installation.Configuration().Path(), installation.Root() + u"/conf/away"_s));
    EXPECT_FALSE(ReconnectConfigConnection());
    TerminateData();
    EXPECT_FALSE(Globals().MainConnection.IsOpen()) << "the end went through to its last step";
}
