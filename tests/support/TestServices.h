#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>
#include <QThread>

#include <functional>

#include "platform/RuntimeError.h"
#include "platform/Services.h"

/// Fake clock with a fixed time. Sleep takes one millisecond, whatever its argument.
class FixedClock : public platform::Clock {
  public:
    QDateTime now = QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15));
    mutable QList<int> sleeps;          ///< arguments of Sleep, milliseconds
    std::function<void(int)> sleeping;  ///< called by Sleep instead of sleeping
    QDateTime Now() const override { return now; }
    std::chrono::milliseconds elapsed{0};
    std::chrono::milliseconds step{0};  ///< added to the elapsed time at each query
    std::chrono::milliseconds Elapsed() const override { return const_cast<FixedClock*>(this)->elapsed += step; }
    void Sleep(int milliseconds) const override {
        sleeps.append(milliseconds);
        if (sleeping) return sleeping(milliseconds);
        QThread::msleep(1);
    }
};

/// Fake message boxes: records what was shown, answers from a queue.
class QueuedDialogs : public platform::Dialogs {
  public:
    struct Box {
        QString text, title;
        bool question;
    };
    QList<Box> shown;
    QList<bool> answers;               ///< of Confirm, first in first out; いいえ if empty
    std::function<void()> whileAsked;  ///< called while a question of Confirm is shown

    using Dialogs::Confirm;
    using Dialogs::ShowMessage;
    void ShowMessage(const QString& text, const QString& title) override { shown.append({text, title, false}); }
    bool Confirm(const QString& text, const QString& title) override {
        shown.append({text, title, true});
        if (whileAsked) whileAsked();
        return answers.isEmpty() ? false : answers.takeFirst();
    }
    /// Arguments and results of ShowSave: first in first out, cancelled if empty.
    QList<platform::SaveQuestion> saveQuestions;
    QList<QString> saveAnswers;
    std::optional<QString> ShowSave(const platform::SaveQuestion& question) override;
    QStringList Texts() const;
};

/// Fake system information.
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

/// Fake process service: records the calls. Starting a program calls `started`; without it the program does not exist.
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

    /// All calls in order, with their arguments.
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

/// Installs the fakes and new globals; the destructor restores the real services.
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
