#pragma once

#include <QString>

namespace platform {

/// Keeps other writers of a registry file out for as long as it lives. The lock lies on a file of its own beside it,
/// since the registry file itself is replaced by each write, and only its owner may open that file. It ends with the
/// process that holds it.
class RegistryLock {
  public:
    explicit RegistryLock(const QString& file);
    ~RegistryLock();
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;

    /// kRegistryDone, kRegistryDenied where the user may not write there, kRegistryLocked.
    long Status() const { return status_; }

  private:
    int lock_ = -1;
    long status_;
};

}  // namespace platform
