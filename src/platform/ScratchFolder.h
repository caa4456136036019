#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace platform {

/// A temporary folder with mode 0700. The destructor removes it with its contents. While the object exists, it locks a
/// file inside. A killed process leaves the folder but not the lock: that distinguishes leftovers from folders in use.
class ScratchFolder {
  public:
    /// Creates the folder in `parent`; its name is `prefix` and six random characters. `note` is stored in the lock
    /// file and returned by ScratchLeftovers, which reads at most 4,096 bytes of it.
    ScratchFolder(const QString& parent, const QString& prefix, const QByteArray& note = {});
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    /// False if it could not be created; see Error.
    bool IsValid() const { return lock_ >= 0; }
    /// The system's error text or a Japanese sentence; empty if the folder was created.
    QString Error() const { return error_; }
    /// Path of a file in the folder.
    QString FilePath(const QString& name) const { return path_ + u'/' + name; }
    /// Prevents the removal by the destructor.
    void Keep() { keep_ = true; }

  private:
    /// One attempt. False if no folder can be created in the parent, so that another attempt is useless.
    bool Make(const QByteArray& pattern, const QByteArray& note);

    QString path_, error_;
    int lock_ = -1;
    bool keep_ = false;
};

/// A scratch folder that was not removed although its process has ended.
struct ScratchLeftover {
    QString path;
    unsigned owner = 0;  ///< user id
    QByteArray note;     ///< of the constructor; empty if not `known`
    /// False if it has no lock file: created by an earlier version or by another program.
    bool known = false;
};

/// Leftovers in `parent` with the prefix that this process can read, of any user, sorted by name. Folders without a
/// lock file are included.
QList<ScratchLeftover> ScratchLeftovers(const QString& parent, const QString& prefix);
/// Removes a known leftover of this user. False for any other one, for one that a process has locked meanwhile, and if
/// a file in it can't be removed.
bool RemoveScratchLeftover(const ScratchLeftover& leftover);
/// RemoveScratchLeftover for all leftovers in `parent` with the prefix; failures are ignored.
void RemoveScratchLeftovers(const QString& parent, const QString& prefix);

}  // namespace platform
