#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace platform {

/// A hidden folder for unfinished work, which only its user can open. It is removed with its contents when the object
/// goes. A process that is killed leaves it, but not the lock on a file inside: that distinguishes such a leftover from
/// the folder of a running process.
class ScratchFolder {
  public:
    /// Makes `parent`/`prefix` with six random characters. `note` is kept inside for the process that finds a leftover.
    ScratchFolder(const QString& parent, const QString& prefix, const QByteArray& note = {});
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    /// False if it could not be made; Error() then has the system's words.
    bool IsValid() const { return lock_ >= 0; }
    QString Error() const { return error_; }
    QString FilePath(const QString& name) const { return path_ + u'/' + name; }
    /// The folder stays when the object goes.
    void Keep() { keep_ = true; }

  private:
    void Make(const QByteArray& pattern, const QByteArray& note);

    QString path_, error_;
    int lock_ = -1;
    bool keep_ = false;
};

/// A scratch folder whose process is gone.
struct ScratchLeftover {
    QString path;
    unsigned owner = 0;
    QByteArray note;
    /// False if it has no lock file: made by an earlier version, or by something else.
    bool known = false;
};

/// Leftovers in a folder that this process can look into, in the order of their names.
QList<ScratchLeftover> ScratchLeftovers(const QString& parent, const QString& prefix);
/// Removes a known leftover of the user of this process. False for any other one, for one that a process has meanwhile
/// locked, and if something in it can't be removed.
bool RemoveScratchLeftover(const ScratchLeftover& leftover);
/// Removes all of them that it can.
void RemoveScratchLeftovers(const QString& parent, const QString& prefix);

}  // namespace platform
