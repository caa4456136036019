#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <sys/syscall.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>

#include "platform/ProcessService.h"
#include "platform/RuntimeError.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

enum class Signals { Delivered, Refused, Ineffective };
Signals g_signals = Signals::Delivered;

}  // namespace

/// Takes the place of the C library's function in this program.
extern "C" int pidfd_send_signal(int process, int signal, siginfo_t* information, unsigned flags) {
    if (g_signals == Signals::Delivered)
        return static_cast<int>(::syscall(SYS_pidfd_send_signal, process, signal, information, flags));
    errno = EPERM;
    return g_signals == Signals::Refused ? -1 : 0;
}

namespace {

class ProcessServiceTest : public ::testing::Test {
  protected:
    /// Writes an executable shell script and returns its path.
    QString Program(const QByteArray& commands, const QString& name = u"program"_s) {
        const QString file = folder.filePath(name);
        WriteBytes(file, "#!/bin/sh\n" + commands + '\n');
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file;
    }
    QByteArray Written(const QString& name) {
        const QString file = folder.filePath(name);
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(file); }));
        return ReadBytes(file);
    }
    QByteArray Target(const char* name) const { return '"' + folder.filePath(QString::fromUtf8(name)).toUtf8() + '"'; }
    static qsizetype OpenDescriptors() {
        return QDir(u"/proc/self/fd"_s).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
    }
    static bool Runs(quint32 process) { return ::kill(static_cast<pid_t>(process), 0) == 0; }

    QTemporaryDir folder;
    LocalProcessService processes;
};

const QByteArray kStay = "exec sleep 60";

}  // namespace

TEST_F(ProcessServiceTest, EachArgumentArrivesAsOneWithItsBlanks) {
    const QString program =
        Program("printf '%s|' \"$#\" \"$@\" > " + Target("new") + "; mv " + Target("new") + ' ' + Target("out"));
    processes.StartHidden(program, {u"001  010 "_s, u"要員 名簿"_s, u""_s});
    EXPECT_EQ(Written(u"out"_s), "3|001  010 |要員 名簿||");
}

TEST_F(ProcessServiceTest, CommandLineTailIsOneArgumentAndAnEmptyOneIsNone) {
    const QString program = Program("printf '%s|' \"$#\" \"$@\" > $0.new; mv $0.new $0.out");
    processes.StartProgram(program, u"001  010 "_s);
    EXPECT_EQ(Written(u"program.out"_s), "1|001  010 |");
    QFile::remove(program + u".out"_s);
    processes.StartProgram(program, {});
    EXPECT_EQ(Written(u"program.out"_s), "0|");
}

TEST_F(ProcessServiceTest, HiddenIsToldToTheProgramAlone) {
    const QString program = Program("echo \"[$MEIBO_START_HIDDEN]\" > $1.new; mv $1.new $1");
    processes.StartHidden(program, {folder.filePath(u"hidden"_s)});
    EXPECT_EQ(Written(u"hidden"_s), "[1]\n");
    qputenv(kStartHiddenVariable, "1");  // must not be inherited by the children of a hidden program
    processes.StartProgram(program, folder.filePath(u"normal"_s));
    qunsetenv(kStartHiddenVariable);
    EXPECT_EQ(Written(u"normal"_s), "[]\n");
}

TEST_F(ProcessServiceTest, WhatCantBeStartedIsToldWithItsName) {
    WriteBytes(folder.filePath(u"plain"_s), "no program");
    for (const QString& name : {folder.filePath(u"missing"_s), folder.filePath(u"plain"_s), folder.path(), u"sh"_s}) {
        try {
            processes.StartHidden(name, {});
            ADD_FAILURE() << "started " << name.toStdString();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), kFileNotFound);
            EXPECT_EQ(error.Description(), u"プログラム「%1」を起動できません。"_s.arg(name));
        }
    }
}

TEST_F(ProcessServiceTest, NameIsTakenWithEitherSeparatorAndWithoutExe) {
    Program("touch " + Target("out"));
    QString name = folder.filePath(u"program.exe"_s);
    processes.StartHidden(name.replace(u'/', u'\\'), {});
    EXPECT_EQ(Written(u"out"_s), "");
}

TEST_F(ProcessServiceTest, ProgramEndingInExeGoesBeforeTheNameWithoutIt) {
    Program("touch " + Target("wrong"));
    Program("touch " + Target("out"), u"program.exe"_s);
    processes.StartHidden(folder.filePath(u"program.exe"_s), {});
    EXPECT_EQ(Written(u"out"_s), "");
    EXPECT_FALSE(QFile::exists(folder.filePath(u"wrong"_s)));
}

TEST_F(ProcessServiceTest, KilledProcessIsGoneAndReaped) {
    const quint32 id = processes.StartHidden(Program(kStay), {});
    const quint32 handle = processes.OpenProcess(0x100001, false, id);
    ASSERT_NE(handle, 0U);
    quint32 code = 5;
    EXPECT_TRUE(processes.GetExitCodeProcess(handle, code));
    EXPECT_EQ(code, ProcessService::kStillActive);
    EXPECT_TRUE(processes.TerminateProcess(handle, 0));
    EXPECT_FALSE(Runs(id));
    EXPECT_TRUE(processes.TerminateProcess(handle, 0));
    EXPECT_TRUE(processes.CloseHandle(handle));
    EXPECT_FALSE(processes.CloseHandle(handle));
    EXPECT_FALSE(processes.TerminateProcess(handle, 0));
}

// A process of another user, and one that is blocked in the kernel.
TEST_F(ProcessServiceTest, ProcessThatDoesNotEndIsReportedAndNotAwaitedForEver) {
    const quint32 id = processes.StartHidden(Program(kStay), {});
    const quint32 handle = processes.OpenProcess(0x100001, false, id);
    for (const Signals signals : {Signals::Refused, Signals::Ineffective}) {
        g_signals = signals;
        EXPECT_FALSE(processes.TerminateProcess(handle, 0));
        g_signals = Signals::Delivered;
        EXPECT_TRUE(Runs(id));
    }
    EXPECT_TRUE(processes.TerminateProcess(handle, 0));
    processes.CloseHandle(handle);
}

TEST_F(ProcessServiceTest, ProcessIdIsNoHandle) {
    const quint32 id = processes.StartHidden(Program(kStay), {});
    const quint32 handle = processes.OpenProcess(0x100001, false, id);
    quint32 code = 5;
    EXPECT_FALSE(processes.GetExitCodeProcess(id, code));
    EXPECT_EQ(code, 5U);
    EXPECT_FALSE(processes.TerminateProcess(id, 0));
    EXPECT_TRUE(Runs(id));
    processes.TerminateProcess(handle, 0);
    processes.CloseHandle(handle);
}

TEST_F(ProcessServiceTest, EndedProcessKeepsItsCodeForItsHandleAndIsReapedByItself) {
    const quint32 id = processes.StartHidden(Program("while [ ! -e " + Target("go") + " ]; do :; done; exit 3"), {});
    const quint32 handle = processes.OpenProcess(0x100001, false, id);
    WriteBytes(folder.filePath(u"go"_s), "");
    quint32 code = ProcessService::kStillActive;
    while (processes.GetExitCodeProcess(handle, code) && code == ProcessService::kStillActive) continue;
    EXPECT_EQ(code, 3U);
    processes.CloseHandle(handle);
    const quint32 other = processes.StartHidden(Program("exit 0"), {});
    EXPECT_TRUE(QTest::qWaitFor([other] { return !Runs(other); }));
    EXPECT_EQ(processes.OpenProcess(0x100001, false, other), 0U);
}

TEST_F(ProcessServiceTest, HandleHasTheCodeOfAProcessThatTheEventLoopHasReaped) {
    const quint32 id = processes.StartHidden(Program("while [ ! -e " + Target("go") + " ]; do :; done; exit 3"), {});
    const quint32 handle = processes.OpenProcess(0, false, id);
    WriteBytes(folder.filePath(u"go"_s), "");
    ASSERT_TRUE(QTest::qWaitFor([id] { return !Runs(id); }, 20000));
    quint32 code = ProcessService::kStillActive;
    EXPECT_TRUE(processes.GetExitCodeProcess(handle, code));
    EXPECT_EQ(code, 3U);
    processes.CloseHandle(handle);
}

TEST_F(ProcessServiceTest, CodeOfAProcessThatIsNoChildIsUnknown) {
    // The shell's child outlives it and is then reaped by another process.
    const quint32 shell =
        processes.StartHidden(Program("sh -c 'while [ ! -e " + Target("go") + " ]; do :; done; exit 3' &\necho $! > " +
                                      Target("new") + "; mv " + Target("new") + ' ' + Target("id")),
                              {});
    const quint32 id = Written(u"id"_s).trimmed().toUInt();
    ASSERT_TRUE(QTest::qWaitFor([shell] { return !Runs(shell); }, 20000));
    const quint32 handle = processes.OpenProcess(0, false, id);
    ASSERT_NE(handle, 0U);
    WriteBytes(folder.filePath(u"go"_s), "");
    quint32 code = ProcessService::kStillActive;
    while (processes.GetExitCodeProcess(handle, code) && code == ProcessService::kStillActive) continue;
    EXPECT_EQ(code, ProcessService::kUnknownExitCode);
    processes.CloseHandle(handle);
}

TEST_F(ProcessServiceTest, EndedProcessHoldsNoDescriptorAlsoWhereItsHandleStaysOpen) {
    const QString program = Program("exit 0");
    const qsizetype before = OpenDescriptors();
    QList<quint32> handles;
    for (int i = 0; i < 20; ++i) handles.append(processes.OpenProcess(0, false, processes.StartHidden(program, {})));
    EXPECT_TRUE(QTest::qWaitFor([&] { return OpenDescriptors() == before; }, 20000)) << OpenDescriptors() - before;
    for (const quint32 handle : handles) {
        quint32 code = ProcessService::kStillActive;
        EXPECT_TRUE(processes.GetExitCodeProcess(handle, code));
        EXPECT_NE(code, ProcessService::kStillActive);
        EXPECT_TRUE(processes.TerminateProcess(handle, 0));
        EXPECT_TRUE(processes.CloseHandle(handle));
        EXPECT_FALSE(processes.CloseHandle(handle));
    }
}

TEST_F(ProcessServiceTest, ClosedHandleOfARunningProcessHoldsNoDescriptor) {
    const quint32 id = processes.StartHidden(Program(kStay), {});
    const qsizetype before = OpenDescriptors();
    EXPECT_TRUE(processes.CloseHandle(processes.OpenProcess(0, false, id)));
    EXPECT_EQ(OpenDescriptors(), before);
    ::kill(static_cast<pid_t>(id), SIGKILL);
    EXPECT_TRUE(QTest::qWaitFor([id] { return !Runs(id); }));
}
