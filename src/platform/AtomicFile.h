#pragma once

#include <QByteArrayView>
#include <QSaveFile>
#include <QString>

namespace platform {

/// A file that replaces another in one step, and only when every byte of it is on the disk: on a full disk, and for
/// readers meanwhile, the file of that name stays as it was. Whatever replaces a file uses this, except what has to
/// keep the file itself (OutputFile).
class AtomicFile {
  public:
    /// A link at the path: replace the file that it points at, or fail.
    enum class Links { Follow, Refuse };

    explicit AtomicFile(const QString& path, Links links = Links::Follow);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    // Each step is False when it fails; without Commit nothing is replaced.

    /// False also where the path is a folder, a pipe or a device: replacing would destroy it.
    bool Open();
    /// For writers that need a device. It is buffered, so that what can't be written may show at Commit only.
    QIODevice& Device() { return file_; }
    bool Write(QByteArrayView bytes) { return file_.write(bytes.data(), bytes.size()) == bytes.size(); }
    bool SetPermissions(QFileDevice::Permissions permissions) { return file_.setPermissions(permissions); }
    bool Commit();

    /// Why a step failed, in words of the system.
    QString ErrorText() const { return error_.isEmpty() ? file_.errorString() : error_; }

  private:
    bool Fail(const QString& reason);

    QSaveFile file_;
    Links links_;
    QString error_;
};

/// The whole content in one call. False, with the reason in `error`, when it was not replaced.
bool ReplaceFile(const QString& path, QByteArrayView content, QString& error);
/// The bytes of a plain file, under new permissions where some are named. False when the target was not replaced.
bool ReplaceByCopy(const QString& source, AtomicFile& target, QFileDevice::Permissions permissions = {});

}  // namespace platform
