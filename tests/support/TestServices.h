#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>
#include <QThread>

#include <functional>

#include "platform/RuntimeError.h"
#include "platform/Services.h"

/// A clock that stands where a test puts it. Sleeping takes a millisecond, however long it was meant to be.
class FixedClock : public platform::Clock {
  public:
    QDateTime now = QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15));
    mutable QList<int> sleeps;          ///< milliseconds asked for
    std::function<void(int)> sleeping;  ///< what happens meanwhile, instead of the millisecond
    QDateTime Now() const override { return now; }
    std::chrono::milliseconds elapsed{0};
    std::chrono::milliseconds step{0};  ///< by which every look at the elapsed time moves it on
    std::chrono::milliseconds Elapsed() const override { return const_cast<FixedClock*>(this)->elapsed += step; }
    void Sleep(int milliseconds) const override {
        sleeps.append(milliseconds);
        if (sleeping) return sleeping(milliseconds);
        QThread::msleep(1);
    }
};

/// Message boxes that nobody has to close: keeps what was shown, answers from a queue.
class QueuedDialogs : public platform::Dialogs {
  public:
    struct Box {
        QString text, title;
        bool question;
    };
    QList<Box> shown;
    QList<bool> answers;               ///< for Confirm, first in first out; with none left the answer is いいえ
    std::function<void()> whileAsked;  ///< what happens elsewhere while a question of Confirm is up

    using Dialogs::Confirm;
    using Dialogs::ShowMessage;
    void ShowMessage(const QString& text, const QString& title) override { shown.append({text, title, false}); }
    bool Confirm(const QString& text, const QString& title) override {
        shown.append({text, title, true});
        if (whileAsked) whileAsked();
        return answers.isEmpty() ? false : answers.takeFirst();
    }
    /// What ShowSave was asked, and what it answers: first in first out, with none left it is cancelled.
    QList<platform::SaveQuestion> saveQuestions;
    QList<QString> saveAnswers;
    std::optional<QString> ShowSave(const platform::SaveQuestion& question) override;
    QStringList Texts() const;
};

/// A machine as the test describes it.
class FixedSystem : public platform::SystemInformation {
  public:
    QString userName = QStringLiteral("tester");
    QString computerName = QStringLiteral("desk1");
    QSize screen = QSize(1280, 1024);
    std::optional<platform::SystemVersion> version;
    QString applicationFolder;
    QString commandLine;

    void ReadUserName(QString& buffer) const override { Write(userName, buffer); }
    void ReadComputerName(QString& buffer) const override { Write(computerName, buffer); }
    QSize ScreenSize() const override { return screen; }
    std::optional<platform::SystemVersion> OsVersion() const override { return version; }
    QString ApplicationFolder() const override { return applicationFolder; }
    QString CommandLine() const override { return commandLine; }

  private:
    static void Write(const QString& name, QString& buffer);
};

/// Records what would have left the process. A started program does what `started` says; without it there is none.
class RecordingProcesses : public platform::ProcessService {
  public:
    QList<int> ends;
    struct Document {
        QString path, workingFolder;
    };
    QList<Document> documents;
    struct Start {
        QString path, arguments;
    };
    QList<Start> starts;
    std::function<void(const Start&)> started;
    void EndProcess(int exitCode) override { ends.append(exitCode); }
    void StartProgram(const QString& path, const QString& arguments) override {
        starts.append({path, arguments});
        if (!started) throw platform::RuntimeError(platform::kFileNotFound, QStringLiteral("no such program"));
        started(starts.last());
    }
    bool OpenDocument(const QString& path, const QString& workingFolder) override {
        documents.append({path, workingFolder});
        return true;
    }

    /// Every call that reaches for another process, in order, with its arguments as they came.
    QStringList calls;
    quint32 nextProcessId = 4711;
    quint32 nextHandle = 77;
    bool startFails = false;
    quint32 StartHidden(const QString& path, const QStringList& arguments) override;
    quint32 OpenProcess(quint32 access, bool inherit, quint32 processId) override;
    bool GetExitCodeProcess(quint32 handle, quint32& code) override;
    bool TerminateProcess(quint32 handle, quint32 exitCode) override;
    bool CloseHandle(quint32 handle) override;
};

/// For the length of a test: fixed clock, queued dialogs, described machine, recorded processes, fresh globals.
/// The real services come back at the end.
class TestServices {
  public:
    TestServices();
    ~TestServices();
    TestServices(const TestServices&) = delete;
    TestServices& operator=(const TestServices&) = delete;

    FixedClock& clock;
    QueuedDialogs& dialogs;
    FixedSystem& system;
    RecordingProcesses& processes;

  private:
    explicit TestServices(platform::ServiceSet&& set);
    platform::ServiceSet kept_;
};
