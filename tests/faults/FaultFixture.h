#pragma once

#include <QMap>
#include <functional>

#include "faults/FailingFiles.h"
#include "faults/FailingMemory.h"
#include "faults/FaultyDisk.h"
#include "support/OutputFixture.h"

// Fault injection: a test repeats an operation and makes each of its points fail once.

/// A kind of fault that can be injected at the n-th point of an operation.
struct Fault {
    QString name;
    std::function<void(int point)> arm;
    std::function<bool()> disarm;  ///< true if the fault was triggered
    /// No history row can be written either, so the failure may be unreported.
    bool mute = false;
    int points = 0;  ///< number of points, for sampling; 0: try each one
};

/// How an operation reported a failure.
struct Outcome {
    bool raised = false;
    QStringList messages;
    QStringList errorRows;
    bool Told() const { return raised || !messages.isEmpty() || !errorRows.isEmpty(); }
};

/// Repeats an operation on an installation with three people, with one fault at each of its points. After each fault
/// the databases must be intact and everything reported as done must be stored; then the same operation without a fault
/// must succeed on what the failure left.
class FaultTest : public OutputTest {
  protected:
    FaultTest();
    ~FaultTest() override;

    /// The operation, including opening its connections. May throw RuntimeError.
    virtual void Work() = 0;
    /// Checks the state after a fault. `untold`: no failure was reported although it could have been, so the operation
    /// must be complete.
    virtual void CheckBehindFault(bool untold) = 0;
    /// Checks the state after the following operation without a fault.
    virtual void CheckBehindNextWork() = 0;
    /// Whether the operation uses this disk operation, so that its fault must be triggered.
    virtual bool AsksFor(DiskOperation /*operation*/) const { return true; }
    /// The file with the user's history.
    virtual SampleFile HistoryFile() const { return installation.Configuration(); }

    // The next three return the number of points at which a fault was triggered.

    /// Each disk fault once, on all files. Each kind that the operation uses must be triggered.
    int FailOnce();
    /// Each disk fault permanently from a point on, on the files with `part` in their name; then any disk operation, on
    /// all files.
    int FailFromThenOn(const QByteArray& part);
    /// Memory faults: each of the first 250 and the last 150 allocations fails, and a sample of those in between.
    int RunOutOfMemory();
    void Try(const Fault& fault);
    /// Prints, records and returns the number of points.
    int PrintTried() const;

    /// Scope without fault injection, for what another machine does.
    struct OnAnotherMachine {
        FaultyDisk::Pause disk;
        FailingMemory::Pause memory;
    };

    /// Call at the end of the constructor: each try starts from this state.
    void KeepAsBeginning();
    void BackToBeginning() const;
    Outcome RunWork();
    /// Throws as a start does.
    static void OpenConnections();
    /// Closes connections, windows and files, as at the program's end.
    void EndProgram();

    FailingFiles* files;
    int tried = 0;  ///< points at which a fault was triggered

  private:
    static int NextPoint(const Fault& fault, int point);
    void TryPoint(const Fault& fault, int point, bool& fallen);
    void ExpectWholeDatabases() const;

    QMap<QString, QByteArray> beginning_;
};
