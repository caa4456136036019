#pragma once

#include <QPoint>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include "support/SampleInstallation.h"
#include "support/VirtualScreen.h"

/// An installation with private copies as an administrator makes it, programs and report host included, in a folder
/// that every user of the machine can access.
class SharedSuite {
  public:
    /// Throws std::runtime_error with the tool's output if it cannot be created.
    explicit SharedSuite(int staff);

    QString Root() const { return Place(QStringLiteral("suite")); }
    QString Place(const QString& name) const { return folder_.filePath(name); }
    QString MachineRegistry() const { return Place(QStringLiteral("machine")); }
    SampleFile General() const { return SampleFile(Root() + QStringLiteral("/data/gnrdb.accdb")); }

  private:
    QTemporaryDir folder_;
};

/// A user of the suite: an account of this machine with a separate display, registry and folder for printed pages. The
/// program is terminated with the object.
class SuiteUser {
  public:
    enum class Who { Runner, Nobody };
    /// The user that runs the test, or the unprivileged account kNobody.
    SuiteUser(const SharedSuite& suite, Who who);
    ~SuiteUser();

    // Each step throws std::runtime_error on failure.

    void StartProgram(const QString& startCommand);
    /// Waits for the program's first list and directs the user's printed pages to a separate folder.
    void AwaitList();
    /// Clicks at a position of the program's window.
    void Click(const QPoint& place);
    /// Answers the question box with はい.
    void SayYes();
    /// Closes the program in order, as the system does.
    void EndProgram();
    /// Closes it by the close box of its window, where Click has clicked before.
    void CloseProgram();

    /// Waits until the program has ended. False if it crashed.
    bool EndsInOrder();

    QString Name() const { return name_; }
    /// The display with simulated keyboard and mouse.
    const VirtualScreen& Screen() const { return screen_; }
    /// The program's window, where Click has clicked.
    const QString& Window() const { return window_; }
    /// A file of the user's private copies, "report/repdb.accdb".
    SampleFile Own(const QString& file) const { return SampleFile(own_ + u'/' + file); }
    QString RegistryFile() const { return home_ + QStringLiteral("/registry"); }
    /// Pages printed so far, as paths of PDFs; waits for the first.
    QStringList Printed() const;

  private:
    QString PrinterFolder() const { return home_ + QStringLiteral("/printed"); }
    QStringList Command(const QStringList& program) const;
    bool ListShown() const;
    void AwaitEnd();

    Who who_;
    QString program_, home_, own_, name_, window_;
    VirtualScreen screen_;
    QProcess process_;
};
