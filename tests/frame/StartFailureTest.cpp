#include <QFile>

#include "frame/Mod要員名簿照会.h"
#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {
const QString kNoDatabase = u"データベースが使用できません。"_s;

void Overwrite(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(content), content.size());
}
}  // namespace

class StartFailureTest : public MainFormTest {
  protected:
    /// Runs the start, which must end the process before the form is shown.
    void ExpectRefusal(const QStringList& boxes) {
        services.system.applicationFolder = installation.ProgramFolder();
        Main();
        EXPECT_EQ(services.dialogs.Texts(), boxes);
        EXPECT_EQ(services.processes.ends, QList<int>{0});
        EXPECT_FALSE(Globals().MainForm->isVisible());
        EXPECT_FALSE(Globals().ConfigConnection.IsOpen());
        EXPECT_FALSE(Globals().MainConnection.IsOpen());
    }
    /// A refusal with one row between start and end: a failed read on a connection that was never opened.
    void ExpectRefusedRead(const QString& box, const QString& statement) {
        ExpectRefusal({box});
        EXPECT_TRUE(Globals().MainConnectionOpen);
        ASSERT_EQ(History().size(), 3);
        const QString row = History()[1];
        EXPECT_TRUE(row.startsWith(u"エラー "_s) && row.endsWith(statement)) << row.toStdString();
    }
};

TEST_F(StartFailureTest, MissingGeneralDatabaseIsRecordedAndNotCreated) {
    ASSERT_TRUE(QFile::remove(installation.General().Path()));
    ExpectRefusal({kNoDatabase});
    EXPECT_FALSE(QFile::exists(installation.General().Path()));
    const QStringList history = History();
    ASSERT_EQ(history.size(), 3);
    EXPECT_EQ(history[0], u"開始 "_s);
    EXPECT_TRUE(history[1].startsWith(u"エラー DB_OPEN ERROR"_s)) << history[1].toStdString();
    EXPECT_EQ(history[2], u"終了"_s);
}

TEST_F(StartFailureTest, EmptyGarbledAndCutGeneralDatabasesEndTheStart) {
    QFile file(installation.General().Path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    file.close();
    for (const QByteArray& content : {QByteArray(), QByteArray(8192, 'x'), whole.left(700)}) {
        Overwrite(installation.General().Path(), content);
        services.dialogs.shown.clear();
        services.processes.ends.clear();
        ExpectRefusal({kNoDatabase});
        QFile after(installation.General().Path());
        ASSERT_TRUE(after.open(QIODevice::ReadOnly));
        EXPECT_EQ(after.readAll(), content);
        TearDown();
        ResetGlobals();
    }
}

TEST_F(StartFailureTest, MissingConfigurationEndsTheStartWithoutAnotherWord) {
    ASSERT_TRUE(QFile::remove(installation.Configuration().Path()));
    ExpectRefusal({kNoDatabase});
    EXPECT_FALSE(QFile::exists(installation.Configuration().Path()));
}

TEST_F(StartFailureTest, GarbledConfigurationSaysWhyFirst) {
    Overwrite(installation.Configuration().Path(), QByteArray(8192, 'x'));
    services.system.applicationFolder = installation.ProgramFolder();
    Main();
    ASSERT_EQ(services.dialogs.shown.size(), 2);
    const QString text = services.dialogs.shown[0].text;
    EXPECT_TRUE(text.startsWith(u"SYB_OPEN ERROR-"_s)) << text.toStdString();
    EXPECT_TRUE(text.endsWith(u"\rsysopen error"_s)) << text.toStdString();
    EXPECT_EQ(services.dialogs.shown[0].title, QString());
    EXPECT_EQ(services.dialogs.shown[1].text, kNoDatabase);
    EXPECT_EQ(services.dialogs.shown[1].title, u"要員名簿照会"_s);
    EXPECT_EQ(services.processes.ends, QList<int>{0});
}

TEST_F(StartFailureTest, ProgramOutsideAnInstallationEndsTheStart) {
    services.system.applicationFolder = installation.Root() + u"/elsewhere"_s;
    Main();
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kNoDatabase});
    EXPECT_EQ(services.processes.ends, QList<int>{0});
}

TEST_F(StartFailureTest, UserNamesThatLeadElsewhereEndTheStart) {
    for (const QString& name : {QString(), u"."_s, u".."_s, u"a/b"_s, u"a\\b"_s}) {
        services.system.userName = name;
        services.dialogs.shown.clear();
        services.processes.ends.clear();
        ExpectRefusal({kNoDatabase});
        TearDown();
        ResetGlobals();
    }
}

TEST_F(StartFailureTest, UnknownDialectCountsAsOpenUntilTheLaunchingStaffIsRead) {
    installation.SetDefinition(u"db"_s, u"A "_s);
    ExpectRefusedRead(kNoDatabase, u"SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = ''00001''"_s);
}

TEST_F(StartFailureTest, UnknownDialectAndNobodyKnownFailAtTheCompany) {
    installation.SetDefinition(u"db"_s, u"A "_s);
    installation.SetEnvironment(u"起動担当者コード"_s, QString());
    ExpectRefusedRead(u"ユーザ情報が使用できません。"_s, u"SELECT * FROM Mユーザ WHERE ID = ''0001''"_s);
}

TEST_F(StartFailureTest, MissingClassTableLeavesOnlyAllInItsList) {
    installation.General().Execute(u"DROP TABLE K社員区分"_s);
    Start();
    EXPECT_EQ(Item(u"社員区分"_s).MaxValue(), 0);
    EXPECT_EQ(Item(u"社員区分名称"_s).ListIndex(), 0);
    EXPECT_EQ(Globals().LastRow, -1);  // the staff statement joins the missing table
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}
