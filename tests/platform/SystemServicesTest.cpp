#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/QTest>

#include <sys/stat.h>
#include <unistd.h>
#include <csignal>

#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "platform/TerminationSignal.h"
#include "screen/SuiteApplication.h"
#include "support/WithoutFileRights.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray Content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Write(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

platform::LocalSystemInformation Started(QList<QByteArray> arguments) {
    std::vector<char*> pointers;
    for (QByteArray& argument : arguments) pointers.push_back(argument.data());
    return {static_cast<int>(pointers.size()), pointers.data()};
}

/// Presses the button of the next message box and records its texts.
struct BoxReader {
    QString title, text;
    QStringList buttons;

    explicit BoxReader(const QString& press) {
        QTimer::singleShot(0, [this, press] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            title = box->windowTitle();
            text = box->text();
            QAbstractButton* wanted = nullptr;
            for (QAbstractButton* button : box->buttons()) {
                buttons << button->text();
                if (button->text() == press) wanted = button;
            }
            if (wanted != nullptr) QTest::mouseClick(wanted, Qt::LeftButton);
        });
    }
};

/// Script that records how it was started: the number of arguments, and each in brackets.
class ProgramFile {
  public:
    explicit ProgramFile(const QString& name) : path_(folder_.filePath(name)) {
        Write(path_, "#!/bin/sh\ncd \"${0%/*}\" && { echo $#; printf '[%s]\\n' \"$@\"; } > part && mv part told\n");
        QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    const QString& Path() const { return path_; }
    QString InFolder(const QString& name) const { return folder_.filePath(name); }
    QByteArray Told() const {
        const QString told = folder_.filePath(u"told"_s);
        return QTest::qWaitFor([&] { return QFile::exists(told); }, 10000) ? Content(told) : QByteArray();
    }

  private:
    QTemporaryDir folder_;
    QString path_;
};

/// Error number of StartProgram; 0 on success.
long StartFailure(const QString& path, const QString& arguments = {}) {
    try {
        platform::LocalProcessService().StartProgram(path, arguments);
        return 0;
    } catch (const platform::RuntimeError& error) {
        EXPECT_TRUE(error.Description().contains(path)) << error.Description().toStdString();
        return error.Number();
    }
}

}  // namespace

TEST(LocalFileSystem, FolderIsNoExistingFile) {
    QTemporaryDir folder;
    const platform::LocalFileSystem files;
    EXPECT_FALSE(files.FileExists(folder.path()));
    Write(folder.filePath(u"a"_s), "x");
    EXPECT_TRUE(files.FileExists(folder.filePath(u"a"_s)));
    EXPECT_FALSE(files.FileExists(folder.filePath(u"A"_s)));
}

TEST(LocalFileSystem, CopyOverwritesAndFailsWithoutTouchingTheTarget) {
    QTemporaryDir folder;
    const platform::LocalFileSystem files;
    Write(folder.filePath(u"source"_s), QByteArray(3 << 20, 'a'));
    Write(folder.filePath(u"target"_s), "old");
    EXPECT_FALSE(files.CopyFile(folder.filePath(u"missing"_s), folder.filePath(u"target"_s)));
    EXPECT_EQ(Content(folder.filePath(u"target"_s)), "old");
    EXPECT_TRUE(files.CopyFile(folder.filePath(u"source"_s), folder.filePath(u"target"_s)));
    EXPECT_EQ(Content(folder.filePath(u"target"_s)), QByteArray(3 << 20, 'a'));
    EXPECT_FALSE(files.CopyFile(folder.filePath(u"source"_s), folder.filePath(u"no/where"_s)));
}

TEST(LocalFileSystem, CopyOfAPipeFailsAtOnceAndLeavesTheTarget) {
    QTemporaryDir folder;
    Write(folder.filePath(u"target"_s), "old");
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder.filePath(u"pipe"_s)).constData(), 0600), 0);
    const platform::LocalFileSystem files;
    EXPECT_FALSE(files.CopyFile(folder.filePath(u"pipe"_s), folder.filePath(u"target"_s)));
    EXPECT_EQ(Content(folder.filePath(u"target"_s)), "old");
}

TEST(LocalFileSystem, CopyToItselfOfAnEmptyFileIsEmpty) {
    QTemporaryDir folder;
    Write(folder.filePath(u"empty"_s), "");
    EXPECT_TRUE(platform::LocalFileSystem().CopyFile(folder.filePath(u"empty"_s), folder.filePath(u"copy"_s)));
    EXPECT_TRUE(QFile::exists(folder.filePath(u"copy"_s)));
}

TEST(LocalFileSystem, RemovedFileIsGoneAndAMissingOneIsNoFailure) {
    QTemporaryDir folder;
    const platform::LocalFileSystem files;
    const QString path = folder.filePath(u"a"_s);
    Write(path, "x");
    EXPECT_TRUE(files.RemoveFile(path));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(files.RemoveFile(path));
}

TEST(LocalFileSystem, WhatMayNotBeRemovedOrIsAFolderStays) {
    QTemporaryDir folder;
    const platform::LocalFileSystem files;
    const QString path = folder.filePath(u"a"_s);
    Write(path, "x");
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner);
    {
        const WithoutFileRights asAnybody;
        EXPECT_FALSE(files.RemoveFile(path));
    }
    EXPECT_TRUE(QFile::exists(path));
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_FALSE(files.RemoveFile(folder.path()));
}

TEST(LocalSystemInformation, ArgumentsAreJoinedBySingleBlanksAndKeepTheirOwn) {
    EXPECT_EQ(Started({"/x/prog", "001   010", "b", ""}).CommandLine(), u"001   010 b "_s);
    EXPECT_EQ(Started({"/x/prog"}).CommandLine(), QString());
}

TEST(LocalSystemInformation, FolderIsThatOfThePathAsStartedWithLinksNotFollowed) {
    QTemporaryDir folder;
    Write(folder.filePath(u"real"_s), "x");
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"prgbin"_s));
    const QString link = folder.filePath(u"prgbin/link"_s);
    ASSERT_TRUE(QFile::link(folder.filePath(u"real"_s), link));
    EXPECT_EQ(Started({link.toUtf8()}).ApplicationFolder(), folder.filePath(u"prgbin"_s));
    EXPECT_EQ(Started({"./a/../b/prog"}).ApplicationFolder(), QDir::currentPath() + u"/b"_s);
}

TEST(LocalSystemInformation, UserNameIsTheRealUsersWhateverTheEnvironmentSays) {
    qputenv("USER", "somebody-else");
    qputenv("LOGNAME", "somebody-else");
    QString buffer(255, u' ');
    Started({"/x/prog"}).ReadUserName(buffer);
    EXPECT_EQ(buffer.size(), 255);
    EXPECT_GT(buffer.indexOf(QChar(u'\0')), 0);
    EXPECT_FALSE(buffer.startsWith(u"somebody-else"_s));
}

TEST(WidgetDialogs, MessageHasItsTitleAndOk) {
    WidgetDialogs dialogs;
    dialogs.defaultTitle = u"要員名簿照会"_s;
    const BoxReader box(u"OK"_s);
    dialogs.ShowMessage(u"操作権限がありません。"_s);
    EXPECT_EQ(box.title, u"要員名簿照会"_s);
    EXPECT_EQ(box.text, u"操作権限がありません。"_s);
    EXPECT_EQ(box.buttons, QStringList{u"OK"_s});
}

TEST(WidgetDialogs, QuestionIsAnsweredInJapanese) {
    WidgetDialogs dialogs;
    for (const QString& answer : {u"はい"_s, u"いいえ"_s}) {
        const BoxReader box(answer);
        EXPECT_EQ(dialogs.Confirm(u"印刷しますか?"_s, u"t"_s), answer == u"はい"_s);
        EXPECT_EQ(box.buttons, QStringList({u"はい"_s, u"いいえ"_s}));
    }
}

TEST(TerminationRequest, ArrivesAsAnEventFromSystemSessionAndTerminal) {
    bool arrived = false;
    platform::OnTerminationRequest([&arrived] { arrived = true; });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        arrived = false;
        ASSERT_EQ(kill(getpid(), signal), 0);
        EXPECT_FALSE(arrived);  // not inside the signal handler
        EXPECT_TRUE(QTest::qWaitFor([&arrived] { return arrived; })) << signal;
        struct sigaction set = {};
        ASSERT_EQ(::sigaction(signal, nullptr, &set), 0);
        EXPECT_NE(set.sa_flags & SA_RESTART, 0) << "interrupts no call of the system";
    }
}

TEST(HostProcesses, StartedProgramGetsOneArgumentWithItsBlanks) {
    const ProgramFile program(u"要員台帳更新"_s);
    EXPECT_EQ(StartFailure(program.Path(), u"00012  "_s), 0);
    EXPECT_EQ(program.Told(), "1\n[00012  ]\n");
}

TEST(HostProcesses, StartedProgramWithoutATailGetsNoArgument) {
    const ProgramFile program(u"tool"_s);
    EXPECT_EQ(StartFailure(program.Path()), 0);
    EXPECT_EQ(program.Told(), "0\n[]\n");
}

TEST(HostProcesses, ProgramNamedExeIsTheFileOfThatNameOrElseTheOneWithout) {
    const ProgramFile plain(u"tool"_s), exact(u"tool.exe"_s);
    EXPECT_EQ(StartFailure(plain.InFolder(u"tool.exe"_s), u"plain"_s), 0);
    EXPECT_EQ(plain.Told(), "1\n[plain]\n");
    EXPECT_EQ(StartFailure(exact.InFolder(u"tool.exe"_s), u"exact"_s), 0);
    EXPECT_EQ(exact.Told(), "1\n[exact]\n");
}

TEST(HostProcesses, WhatCannotBeStartedIsAFailure) {
    const ProgramFile program(u"tool"_s);
    EXPECT_EQ(StartFailure(program.InFolder(u"missing"_s)), platform::kFileNotFound);
    EXPECT_EQ(StartFailure(program.InFolder(u""_s)), platform::kFileNotFound) << "a folder";
    QFile::setPermissions(program.Path(), QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(StartFailure(program.Path()), platform::kFileNotFound) << "not executable";
    Write(program.Path(), "neither a script nor a program");
    QFile::setPermissions(program.Path(), QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(StartFailure(program.Path()), platform::kFileNotFound) << "of no known format";
}
