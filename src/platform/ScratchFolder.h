#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace platform {

/// A hidden temporary folder with mode 0700. The destructor removes it with its contents. A killed process leaves the
/// folder, but not its lock on a file inside; this distinguishes leftovers from folders in use.
class ScratchFolder {
  public:
    /// Creates `parent`/`prefix` plus six random characters. `note` is stored inside for whichever process finds a
    /// leftover.
    ScratchFolder(const QString& parent, const QString& prefix, const QByteArray& note = {});
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    /// False if it could not be created; see Error.
    bool IsValid() const { return lock_ >= 0; }
    /// The system's error text; empty if it was created.
    QString Error() const { return error_; }
    QString FilePath(const QString& name) const { return path_ + u'/' + name; }
    /// Prevents the removal by the destructor.
    void Keep() { keep_ = true; }

  private:
    void Make(const QByteArray& pattern, const QByteArray& note);

    QString path_, error_;
    int lock_ = -1;
    bool keep_ = false;
};

/// A scratch folder whose process has ended.
struct ScratchLeftover {
    QString path;
    unsigned owner = 0;
    QByteArray note;
    /// False if it has no lock file: created by an earlier version or by another program.
    bool known = false;
};

/// Leftovers in `parent` that this process can read, sorted by name.
QList<ScratchLeftover> ScratchLeftovers(const QString& parent, const QString& prefix);
/// Removes a known leftover of this user. False for any other one, one that a process has locked meanwhile, and if
/// something in it can't be removed.
bool RemoveScratchLeftover(const ScratchLeftover& leftover);
/// Removes all that can be removed; failures are ignored.
void RemoveScratchLeftovers(const QString& parent, const QString& prefix);

}  // namespace platform
