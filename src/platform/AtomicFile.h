#pragma once

#include <QByteArrayView>
#include <QSaveFile>
#include <QString>

namespace platform {

/// Replaces a file atomically: writes a temporary file in the same folder; Commit syncs it and renames it over the
/// target. Readers see the old or the new content, never a part. A step that fails before the rename (full disk) leaves
/// the old file unchanged. The new file gets the permissions of the old one; its owner is this process's user. To keep
/// owner and hard links of an existing file, use OutputFile.
class AtomicFile {
  public:
    /// What to do when the path is a symbolic link: replace the file that it points at, or fail in Open.
    enum class Links { Follow, Refuse };

    explicit AtomicFile(const QString& path, Links links = Links::Follow);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    // Call Open, Write or Device, then Commit. All steps return false on failure; ErrorText has the reason. The
    // destructor without Commit removes the temporary file.

    /// Creates the temporary file. False also when the path is a folder, a pipe or a device: renaming over it would
    /// destroy it.
    bool Open();
    /// For writers that need a device. It is buffered: a write error may be reported by Commit only.
    QIODevice& Device() { return file_; }
    /// Appends raw bytes.
    bool Write(QByteArrayView bytes) { return file_.write(bytes.data(), bytes.size()) == bytes.size(); }
    bool SetPermissions(QFileDevice::Permissions permissions) { return file_.setPermissions(permissions); }
    /// Flushes, syncs the file, renames it and syncs the folder. If only the last step fails, the result is false
    /// although the target has been replaced.
    bool Commit();

    /// The reason of the last failure, for a message: a Japanese sentence or the text of the system.
    QString ErrorText() const { return error_.isEmpty() ? file_.errorString() : error_; }

  private:
    friend bool ReplaceByCopy(const QString& source, AtomicFile& target, QFileDevice::Permissions permissions);
    /// Sets the error text. Always false.
    bool Fail(const QString& reason);

    QSaveFile file_;
    Links links_;
    QString error_;
};

/// Replaces the file at `path` by `content`; follows symbolic links. On failure false, with the reason in `error`; the
/// old file is unchanged, except as for Commit.
bool ReplaceFile(const QString& path, QByteArrayView content, QString& error);
/// Copies the bytes of a regular file into `target` (not opened yet) and commits it, with `permissions` unless empty.
/// On failure false, and the target file is unchanged, except as for Commit; target.ErrorText() has the
/// reason.
bool ReplaceByCopy(const QString& source, AtomicFile& target, QFileDevice::Permissions permissions = {});

/// fsync on an open file. False on failure: a file system with delayed allocation reports a full disk only here. True
/// on a file system without fsync.
bool SyncFile(int descriptor);
/// fsync on a folder, so that files created or renamed in it keep their names after a power failure. False on failure;
/// true without a sync if this process has no read permission for the folder.
bool SyncFolder(const QString& folder);

}  // namespace platform
