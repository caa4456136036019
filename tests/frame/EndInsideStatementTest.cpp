// The programs, asked to exit while the engine executes a statement that never ends.

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest/QTest>

#include "support/SampleInstallation.h"
#include "support/VirtualScreen.h"
#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kTimeout = 30000;            // milliseconds
constexpr QPoint kSearchButton(811, 150);  // in the inquiry's window

// Never ends, with constant memory.
const QString kEndless =
    u"(SELECT COUNT(*) FROM (WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c) SELECT n FROM c))"_s;

class EndInsideStatement : public testing::Test {
  protected:
    ~EndInsideStatement() override {
        process.kill();
        process.waitForFinished();
    }

    void Start(const QString& name, const QStringList& arguments = {}, const QString& display = {}) {
        const QString program = installation.ProgramFolder() + u'/' + name;
        ASSERT_TRUE(QFile::link(QStringLiteral(SUITE_PROGRAMS "/") + name, program));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, display.isEmpty() ? u"offscreen"_s : u"xcb"_s);
        if (!display.isEmpty()) environment.insert(u"DISPLAY"_s, display);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(program, arguments);
    }
    /// Replaces a table by a view without rows that never ends.
    static void MakeEndless(const SampleFile& file, const QString& table) {
        file.Execute(u"ALTER TABLE %1 RENAME TO 元の%1; CREATE VIEW %1 AS SELECT * FROM 元の%1 WHERE %2 < 0"_s.arg(
            table, kEndless));
    }
    /// True while a statement runs on the file: its read lock prevents an exclusive one.
    static bool IsInUse(const SampleFile& file) {
        sqlite3* other = nullptr;
        sqlite3_open_v2(file.Path().toUtf8().constData(), &other, SQLITE_OPEN_READWRITE, nullptr);
        const int code = sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
        sqlite3_close(other);
        return code == SQLITE_BUSY;
    }
    static bool StaysInUse(const SampleFile& file) {
        for (int i = 0; i < 20; ++i, QTest::qWait(20))
            if (!IsInUse(file)) return false;
        return true;
    }
    bool HasBegun() const {
        const QStringList texts = installation.HistoryTexts();
        return !texts.isEmpty() && texts.first().startsWith(u"開始 "_s);
    }
    void ExpectEnd() {
        ASSERT_TRUE(process.waitForFinished(kTimeout));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
    }
    void ExpectEndInHistory() {
        ExpectEnd();
        EXPECT_EQ(installation.HistoryTexts().value(installation.HistoryTexts().size() - 1), u"終了"_s);
    }

    SampleInstallation installation;
    QProcess process;
};

}  // namespace

TEST_F(EndInsideStatement, ATerminationRequestEndsTheFirstSearchOfAnEndlessView) {
    MakeEndless(installation.General(), u"M担当者"_s);
    Start(u"要員名簿照会"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return HasBegun() && StaysInUse(installation.General()); }, kTimeout));
    process.terminate();
    ExpectEndInHistory();
}

TEST_F(EndInsideStatement, TheCloseBoxEndsASearchOfAnEndlessView) {
    const VirtualScreen screen;
    Start(u"要員名簿照会"_s, {}, screen.Display());
    const QString window = screen.NewestOf(1);
    ASSERT_FALSE(window.isEmpty());
    MakeEndless(installation.General(), u"M担当者"_s);
    ASSERT_TRUE(screen.Click(window, kSearchButton));
    ASSERT_TRUE(QTest::qWaitFor([this] { return StaysInUse(installation.General()); }, kTimeout));
    ASSERT_TRUE(screen.PressCloseBox(window));
    ExpectEndInHistory();
}

TEST_F(EndInsideStatement, ATerminationRequestEndsASaveWithAnEndlessTriggerAndNothingIsSaved) {
    const QString before = installation.General().Value(u"SELECT 氏名 FROM M担当者 WHERE コード = '00007'"_s);
    const VirtualScreen screen;
    installation.Configuration().Execute(
        u"INSERT INTO プログラム連携情報 VALUES ('%1', '要員名簿照会', '要員台帳更新', '%1', '00', '00000007', '', "
        u"'000',"
        " '00001', 'tester')"_s.arg(TimeStamp(QDateTime::currentDateTime())));
    Start(u"要員台帳更新"_s, {u"00000007"_s}, screen.Display());
    const QString window = screen.NewestOf(1);
    ASSERT_FALSE(window.isEmpty());
    installation.General().Execute(
        u"CREATE TRIGGER 終わらない AFTER UPDATE OF 氏名 ON M担当者 BEGIN SELECT %1; END"_s.arg(kEndless));
    // Backwards from the first item: 終了, 削除, 保存.
    ASSERT_TRUE(screen.Press(window, {u"ctrl+a"_s}) && screen.Type(window, u"Tanaka Ichiro"_s) &&
                screen.Press(window, {u"shift+Tab"_s, u"shift+Tab"_s, u"shift+Tab"_s, u"space"_s}));
    ASSERT_TRUE(QTest::qWaitFor([this] { return StaysInUse(installation.General()); }, kTimeout));
    process.terminate();
    ExpectEndInHistory();
    EXPECT_EQ(installation.General().Value(u"SELECT 氏名 FROM M担当者 WHERE コード = '00007'"_s), before);
    EXPECT_FALSE(QFileInfo::exists(installation.General().Path() + u"-journal"_s));
    EXPECT_EQ(installation.Configuration().Rows(u"SELECT 連携区分, 起動連携情報 FROM プログラム連携情報"_s),
              (QList<QStringList>{{u"99"_s, u"00000007"_s}}));
}

TEST_F(EndInsideStatement, ATerminationRequestEndsAStartWithAnEndlessTriggerOnTheHistory) {
    installation.Configuration().Execute(
        u"CREATE TRIGGER 終わらない AFTER INSERT ON プログラム稼動履歴 BEGIN SELECT %1; END"_s.arg(kEndless));
    Start(u"要員名簿照会"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return StaysInUse(installation.Configuration()); }, kTimeout));
    QElapsedTimer timer;
    timer.start();
    process.terminate();
    ExpectEnd();
    EXPECT_LT(timer.elapsed(), 20000);
}
