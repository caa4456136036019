#include <QDir>
#include <QLabel>
#include <QtTest/QTest>

#include <unistd.h>
#include <csignal>

#include "globals/ProgramGlobals.h"
#include "inquiry/RowMarks.h"
#include "report-host/template/OutputTarget.h"
#include "screen/Form.h"
#include "setup/storage/Installer.h"
#include "support/FileBytes.h"
#include "support/HostProgram.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {

/// The main form with the real report host, registered in the installation, and a folder as printer.
class MainFormReportTest : public MainFormTest {
  protected:
    MainFormReportTest() {
        platform::Services().processes = std::make_unique<platform::LocalProcessService>();
        services.clock.sleeping = [this](int milliseconds) {
            waitDialogShown = WaitDialogShown();
            QThread::msleep(static_cast<unsigned long>(milliseconds));
        };
        setup::InstallPrograms(QStringLiteral(SUITE_PROGRAMS), installation.Root());
        setup::RegisterReportHost(installation.Root());
        WriteOutputTarget(installation.ReportFolder() + u"/repfrmdb.accdb"_s, {},
                          {OutputTarget::Kind::Folder, printer.path()});
    }
    ~MainFormReportTest() override {
        for (const qint64 host : Hosts()) ::kill(static_cast<pid_t>(host), SIGKILL);
    }

    QString HostFile() const { return setup::ReportHostFolder(installation.Root()) + u"MSACCESS.EXE"_s; }
    QList<qint64> Hosts() const { return ProcessesOf(HostFile()); }
    /// Polls, since a killed process exists until it has been reaped.
    void ExpectHosts(const QList<qint64>& hosts) const {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Hosts() == hosts; }, 10000));
        EXPECT_EQ(Hosts(), hosts);
    }
    QStringList Printed() const { return QDir(printer.path()).entryList(QDir::Files); }
    QStringList Boxes() const { return services.dialogs.Texts(); }
    QString Status() const { return MainForm().findChild<QLabel*>(u"状況"_s)->accessibleName(); }
    static QString Everyone() { return QString::number(Globals().LastRow + 1); }
    static bool WaitDialogShown() { return LoadedForm(u"msgお待ち"_s) != nullptr; }
    /// Presses the button and answers its question with はい.
    void Order(const QString& button) {
        services.dialogs.answers.append(true);
        Click(button);
    }

    QTemporaryDir printer;
    bool waitDialogShown = false;
};

}  // namespace

TEST_F(MainFormReportTest, PrintButtonBringsOutTheTickedRowsAndNoHostIsLeft) {
    Start();
    const int before = static_cast<int>(History().size());
    Order(u"btn_印刷"_s);
    EXPECT_EQ(Boxes(), QStringList{u"印刷しますか?"_s});
    ASSERT_EQ(Printed().size(), 1);
    EXPECT_TRUE(ReadBytes(printer.filePath(Printed().first())).startsWith("%PDF"));
    ExpectHosts({});
    EXPECT_EQ(History().mid(before), QStringList({u"出力開始 印刷"_s, u"出力終了 印刷"_s}));
    EXPECT_TRUE(waitDialogShown);
    EXPECT_FALSE(WaitDialogShown());
    EXPECT_EQ(Status(), Everyone() + u" 名を印刷しました。"_s);
}

TEST_F(MainFormReportTest, MailButtonsBringOutTheirPiecesAndNoHostIsLeft) {
    Start();
    for (const QString& piece : {u"封筒"_s, u"はがき"_s, u"宛名ラベル"_s}) {
        Click(u"chb_出力対象"_s, 0);
        const int marked = MarkedRowCount();
        Order(u"btn_"_s + piece);
        EXPECT_EQ(Status(), QString::number(marked) + u" 名を印刷しました。"_s);
        EXPECT_EQ(Printed().filter(u"要員名簿照会"_s + piece + u'-').size(), 1) << piece.toStdString();
        ExpectHosts({});
    }
    EXPECT_EQ(Printed().size(), 3);
    EXPECT_EQ(Boxes(), QStringList({u"印刷しますか?"_s, u"印刷しますか?"_s, u"印刷しますか?"_s}));
}

TEST_F(MainFormReportTest, NoStartsNothing) {
    Start();
    Click(u"btn_印刷"_s);
    Click(u"btn_プレビュ"_s);
    EXPECT_EQ(Boxes(), QStringList({u"印刷しますか?"_s, u"プレビュしますか?"_s}));
    EXPECT_EQ(Printed(), QStringList());
    ExpectHosts({});
}

TEST_F(MainFormReportTest, PreviewStaysOnTheScreenWhileTheProgramGoesOn) {
    Start();
    Order(u"btn_プレビュ"_s);
    EXPECT_EQ(Hosts().size(), 1);
    EXPECT_FALSE(WaitDialogShown());
    EXPECT_EQ(Status(), Everyone() + u" 名をプレビュしました。"_s);
    const int before = static_cast<int>(History().size());
    Click(u"btn_集計検索"_s);
    EXPECT_EQ(History().size(), before + 1);
    EXPECT_EQ(Hosts().size(), 1);
}

TEST_F(MainFormReportTest, TwoPreviewsSurviveAPrint) {
    Start();
    Order(u"btn_プレビュ"_s);
    const QList<qint64> first = Hosts();
    Order(u"btn_プレビュ"_s);
    const QList<qint64> both = Hosts();
    EXPECT_EQ(both.size(), 2);
    EXPECT_TRUE(both.contains(first.value(0)));
    Order(u"btn_印刷"_s);
    EXPECT_EQ(Printed().size(), 1);
    ExpectHosts(both);
}

TEST_F(MainFormReportTest, OnlyThePrintShowsAMissingHost) {
    QFile::remove(HostFile());
    Start();
    Order(u"btn_プレビュ"_s);
    EXPECT_EQ(Boxes(), QStringList{u"プレビュしますか?"_s});
    Order(u"btn_印刷"_s);
    EXPECT_EQ(Boxes().mid(1),
              QStringList({u"印刷しますか?"_s, u"プログラム「%1」を起動できません。"_s.arg(HostFile())}));
    EXPECT_EQ(History().count(u"出力終了 印刷"_s), 1);
    EXPECT_EQ(History().count(u"出力終了 プレビュ"_s), 1);
    EXPECT_FALSE(Globals().ReportDatabase.IsOpen());
    EXPECT_EQ(Status(), Everyone() + u" 件　印 "_s + Everyone() + u" 件"_s) << "nothing was output";
}

TEST_F(MainFormReportTest, HostThatNeverListensIsReportedAndNotKilled) {
    ASSERT_TRUE(QFile::remove(HostFile()));
    ASSERT_TRUE(QFile::copy(QStringLiteral(TEST_PROGRAMS "/unresponsive-host"), HostFile()));
    Start();
    Order(u"btn_印刷"_s);
    EXPECT_EQ(Boxes().last(), u"帳票ホストに接続できません。"_s);
    EXPECT_EQ(Printed(), QStringList());
    EXPECT_EQ(Hosts().size(), 1);
}

TEST_F(MainFormReportTest, FailedReportShowsTheMessageOfTheHost) {
    Start();
    QFile::remove(installation.ReportFolder() + u"/repfrmdb.accdb"_s);
    Order(u"btn_印刷"_s);
    ASSERT_EQ(Boxes().size(), 2);
    EXPECT_TRUE(Boxes().last().contains(u"repfrmdb.accdb"_s)) << Boxes().last().toStdString();
    // It is not killed; it quits when its client disconnects.
    EXPECT_TRUE(QTest::qWaitFor([this] { return Hosts().isEmpty(); }, 20000));
}

TEST_F(MainFormReportTest, FolderThatOthersMayEnterEndsThePrintWithAMessage) {
    // Short enough for the path of a socket, wherever the tests keep their files.
    const QTemporaryDir temporary(u"/tmp/meibo-XXXXXX"_s);
    const QString squatted = temporary.filePath(u"youin-meibo-%1"_s.arg(::getuid()));
    ASSERT_TRUE(QDir().mkdir(squatted) && QFile::setPermissions(squatted, QFile::Permissions(0x7777)));
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    qunsetenv("XDG_RUNTIME_DIR");
    qputenv("TMPDIR", temporary.path().toUtf8());
    Start();
    Order(u"btn_印刷"_s);
    qputenv("XDG_RUNTIME_DIR", runtime);
    qunsetenv("TMPDIR");
    EXPECT_EQ(Boxes().last(),
              u"フォルダ「%1」は自分専用のものではないため、帳票ホストとの連絡に使えません。"_s.arg(squatted));
    EXPECT_EQ(Printed(), QStringList());
    EXPECT_EQ(QDir(squatted).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot), QStringList());
    ExpectHosts({});
}

TEST_F(MainFormReportTest, EndedPreviewsLeaveNoDescriptor) {
    const auto open = [] { return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size(); };
    Start();
    Order(u"btn_プレビュ"_s);
    const qsizetype before = open();
    for (int i = 0; i < 3; ++i) {
        const QList<qint64> earlier = Hosts();
        Order(u"btn_プレビュ"_s);
        for (const qint64 host : Hosts())
            if (!earlier.contains(host)) ::kill(static_cast<pid_t>(host), SIGTERM);
        ExpectHosts(earlier);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return open() <= before; }, 20000)) << open() - before;
}
