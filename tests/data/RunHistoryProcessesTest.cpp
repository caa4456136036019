#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

#include <array>
#include <vector>

#include "data/DataFixture.h"
#include "data/RunHistory.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kWriters = 8;
constexpr int kRowsEach = 500;

/// Runs another program of the suite in a separate process with its own configuration connection.
template <typename Work>
pid_t StartProgram(const SampleInstallation& installation, Work work) {
    const pid_t child = fork();
    if (child != 0) return child;
    ProgramGlobals& globals = Globals();
    globals.Layout.ConfigDbKind = FileKind::Accdb;
    globals.Layout.UserConfFolder = installation.Root() + u"/conf"_s;
    globals.ProcCounter = 0;
    if (!ReconnectConfigConnection()) _exit(1);
    work();
    _exit(0);
}

QList<QStringList> Rows(const SampleInstallation& installation, const QString& sql) {
    return installation.Configuration().Rows(sql);
}

// This process opens no connection: database handles must not be carried across fork.
using RunHistoryProcesses = InInstallation;

}  // namespace

TEST_F(RunHistoryProcesses, EightProgramsWritingAtOnceLoseNoRow) {
    std::vector<pid_t> children;
    for (int writer = 0; writer < kWriters; ++writer)
        children.push_back(StartProgram(installation, [writer] {
            Globals().UserId = QString::number(writer);
            for (int i = 0; i < kRowsEach; ++i) RecordOutputStart(u"印刷"_s);
        }));
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    QList<QStringList> expected;
    for (int writer = 0; writer < kWriters; ++writer)
        expected.append({QString::number(writer), QString::number(kRowsEach), u"000000000001"_s, u"000000000500"_s});
    EXPECT_EQ(Rows(installation,
                   u"SELECT ユーザID, COUNT(DISTINCT proccounter), MIN(proccounter), MAX(proccounter)"
                   u" FROM プログラム稼動履歴 GROUP BY ユーザID ORDER BY ユーザID"_s),
              expected);
}

TEST_F(RunHistoryProcesses, AKilledProgramLeavesEveryRowWhoseWriterHadReturned) {
    constexpr int kKills = 5;
    int written = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = StartProgram(installation, [&pipe] {
            for (const char done = 1;;) {
                RecordOutputStart(u"印刷"_s);
                if (write(pipe[1], &done, 1) != 1) _exit(2);
            }
        });
        close(pipe[1]);
        std::array<char, 4096> told{};
        int rows = 0;
        while (rows < 20 + kill) rows += static_cast<int>(std::max<ssize_t>(read(pipe[0], told.data(), 1), 0));
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        for (ssize_t more = 0; (more = read(pipe[0], told.data(), told.size())) > 0;) rows += static_cast<int>(more);
        close(pipe[0]);
        written += rows;
        const int stored = Rows(installation, u"SELECT COUNT(*) FROM プログラム稼動履歴"_s).first().first().toInt();
        EXPECT_GE(stored, written);
        EXPECT_LE(stored, written + kill + 1) << "one row at most a kill was stored but not yet told";
        EXPECT_EQ(Rows(installation, u"PRAGMA integrity_check"_s), QList<QStringList>{{u"ok"_s}});
    }
}
