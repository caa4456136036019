#pragma once

#include <QByteArrayView>
#include <QSaveFile>
#include <QString>

namespace platform {

/// Writes a temporary file and renames it over the target in Commit, after fsync. Until then, and when any step fails
/// (full disk), the old file stays as it was, also for concurrent readers. Use this for every replacement of a file,
/// unless the file itself must be kept (owner, hard links): then OutputFile.
class AtomicFile {
  public:
    /// What to do when the path is a symbolic link: replace the file that it points at, or fail in Open.
    enum class Links { Follow, Refuse };

    explicit AtomicFile(const QString& path, Links links = Links::Follow);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    // All steps return false on failure; ErrorText has the reason. Without Commit nothing is replaced.

    /// Creates the temporary file. False also when the path is a folder, a pipe or a device: renaming over it would
    /// destroy it.
    bool Open();
    /// For writers that need a device. It is buffered: a write error may be reported by Commit only.
    QIODevice& Device() { return file_; }
    /// Appends raw bytes.
    bool Write(QByteArrayView bytes) { return file_.write(bytes.data(), bytes.size()) == bytes.size(); }
    bool SetPermissions(QFileDevice::Permissions permissions) { return file_.setPermissions(permissions); }
    /// Flushes, waits for the disk and renames.
    bool Commit();

    /// Why the last step failed, for a message: the system's text or a Japanese sentence.
    QString ErrorText() const { return error_.isEmpty() ? file_.errorString() : error_; }

  private:
    bool Fail(const QString& reason);

    QSaveFile file_;
    Links links_;
    QString error_;
};

/// Replaces the file at `path` by `content`. On failure false, with the reason in `error`; the old file is unchanged.
bool ReplaceFile(const QString& path, QByteArrayView content, QString& error);
/// Copies the bytes of a plain file into `target` (not opened yet) and commits it, with `permissions` unless empty.
/// False when the source is no plain file or a step fails; the target file is unchanged.
bool ReplaceByCopy(const QString& source, AtomicFile& target, QFileDevice::Permissions permissions = {});

/// fsync on an open file. False on failure; on file systems with delayed allocation this is the only report of a full
/// disk. A file system without fsync counts as success.
bool SyncFile(int descriptor);
/// fsync on a folder, so that files created or renamed in it keep their names after a power failure. False on failure.
bool SyncFolder(const QString& folder);

}  // namespace platform
