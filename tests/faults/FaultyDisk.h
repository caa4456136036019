#pragma once

#include <QByteArray>

/// Operations of the engine on a disk.
enum class DiskOperation { Open, Read, Write, Sync, Lock, Truncate, Delete, Any };

/// A kind of disk fault. `code` is the SQLite error returned to the engine; 0: the usual one of the operation.
struct DiskFault {
    const char* name;
    DiskOperation operation;
    int code = 0;
    bool doneAllTheSame = false;  ///< the operation is performed but reported as failed, as on a network share
};

/// SQLite VFS with fault injection for all databases of the process. Counts operations of one kind and fails the n-th;
/// a failed write has written its first half. Syncs do nothing.
class FaultyDisk {
  public:
    enum class Lasting { Once, FromThenOn };

    /// Call once per process, before the first database is opened.
    static void Install();
    /// The `point`-th operation from now on fails, only on files with `part` in their name (empty: all).
    static void Arm(const DiskFault& fault, int point, Lasting lasting, const QByteArray& part = {});
    /// Stops failing; Disarm still returns whether the fault was triggered.
    static void Repair();
    /// Ends the injection. True if a fault was triggered.
    static bool Disarm();

    /// Scope in which operations neither fail nor count, for what another program does.
    class Pause {
      public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
    };
};
