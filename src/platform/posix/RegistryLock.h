#pragma once

#include <QString>

namespace platform {

/// Exclusive lock on a registry file against other writers, for the lifetime of the object. The lock is on a separate
/// file with the suffix ".lock" and mode 0600, since each write replaces the registry file. The kernel releases it when
/// the process ends.
class RegistryLock {
  public:
    /// Locks the registry file at the path `file`; waits up to five seconds.
    explicit RegistryLock(const QString& file);
    ~RegistryLock();
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;

    /// kRegistryDone if locked; kRegistryDenied if the lock file can't be opened for writing; kRegistryLocked after the
    /// timeout.
    long Status() const { return status_; }

  private:
    int lock_ = -1;
    long status_;
};

}  // namespace platform
