#pragma once

#include <QMap>
#include <functional>

#include "faults/FailingFiles.h"
#include "faults/FailingMemory.h"
#include "faults/FaultyDisk.h"
#include "support/OutputFixture.h"

/// One way of failing that can be planned for a point of a piece of work.
struct Fault {
    QString name;
    std::function<void(int point)> arm;
    std::function<bool()> disarm;  ///< true when the fault has fallen
    /// The history can take no row either, so what failed may stay untold.
    bool mute = false;
    int points = 0;  ///< so many that not each is tried; 0: each
};

/// What a piece of work told of itself, in whatever way.
struct Outcome {
    bool raised = false;
    QStringList messages;
    QStringList errorRows;
    bool Told() const { return raised || !messages.isEmpty() || !errorRows.isEmpty(); }
};

/// A piece of work on an installation with three people, done again and again with one fault at each of its points in
/// turn. Behind each the databases must be whole and what was told as done must be there; then the same work, without a
/// fault and on what the failure left, must succeed.
class FaultTest : public OutputTest {
  protected:
    FaultTest();
    ~FaultTest() override;

    /// The work, with its openings. It may raise RuntimeError.
    virtual void Work() = 0;
    /// What must hold behind a fault. `untold`: nothing was told although it could have been, so all must be there.
    virtual void CheckBehindFault(bool untold) = 0;
    /// What must hold behind the next work without a fault.
    virtual void CheckBehindNextWork() = 0;
    /// Whether the work asks this of the disk, so that a fault of it has to fall.
    virtual bool AsksFor(DiskOperation /*operation*/) const { return true; }
    /// Where the user's history lies.
    virtual SampleFile HistoryFile() const { return installation.Configuration(); }

    // The next three give the number of points at which a fault has fallen.

    /// Every disk fault, once, on every file. Each kind that the work asks for must have fallen.
    int FailOnce();
    /// The disk of one file fails in each way from a point on; then there is no disk any more at all.
    int FailFromThenOn(const QByteArray& part);
    /// Each of the first and of the last hundreds of allocations fails in its turn, and some of the thousands between.
    int RunOutOfMemory();
    void Try(const Fault& fault);
    /// How many points it were.
    int TellTried() const;

    /// Another program for its length, on a machine that is well.
    struct OnAnotherMachine {
        FaultyDisk::Pause disk;
        FailingMemory::Pause memory;
    };

    /// To be called at the end of the set-up: this is where every try begins.
    void KeepAsBeginning();
    void BackToBeginning() const;
    Outcome RunWork();
    /// Raises as a start does.
    static void OpenConnections();
    /// As when the program has ended: no connection, no window, no file is open.
    void EndProgram();

    FailingFiles* files;
    int tried = 0;  ///< points at which a fault has fallen

  private:
    static int NextPoint(const Fault& fault, int point);
    void TryPoint(const Fault& fault, int point, bool& fallen);
    void ExpectWholeDatabases() const;

    QMap<QString, QByteArray> beginning_;
};
