#pragma once

#include <QString>

namespace platform {

/// Exclusive lock on a registry file against other writers, for the lifetime of the object. A separate lock file (0600)
/// is used, since each write replaces the registry file. The kernel releases the lock when the process ends.
class RegistryLock {
  public:
    explicit RegistryLock(const QString& file);
    ~RegistryLock();
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;

    /// kRegistryDone, kRegistryDenied if the user has no write permission, kRegistryLocked after a timeout.
    long Status() const { return status_; }

  private:
    int lock_ = -1;
    long status_;
};

}  // namespace platform
