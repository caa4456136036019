#pragma once

#include <QByteArray>

/// What the engine asks of a disk.
enum class DiskOperation { Open, Read, Write, Sync, Lock, Truncate, Delete, Any };

/// One way of failing. `code` is what the engine is told; 0 stands for the usual code of the operation at hand.
struct DiskFault {
    const char* name;
    DiskOperation operation;
    int code = 0;
    bool doneAllTheSame = false;  ///< the operation takes place, only its success gets lost, as on a network share
};

/// The disk under every database that the process opens, in between the engine and the real one. It counts the
/// operations of one kind and fails the n-th; a write that fails has written its first half. Nothing waits for the
/// real disk at a sync.
class FaultyDisk {
  public:
    enum class Lasting { Once, FromThenOn };

    /// Once for the process, before the first database is opened.
    static void Install();
    /// From now on `point` operations more and the fault falls, on files with `part` in their name only (empty: all).
    static void Arm(const DiskFault& fault, int point, Lasting lasting, const QByteArray& part = {});
    /// The disk is well from now on; Disarm still tells what was before.
    static void Mend();
    /// The disk is well again. True when a fault has fallen.
    static bool Disarm();

    /// For its length the disk is well, and nothing is counted: somebody else works on it.
    class Pause {
      public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
    };
};
