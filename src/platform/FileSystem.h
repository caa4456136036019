#pragma once

#include <QString>
#include <memory>

#include "platform/OutputFile.h"

namespace platform {

/// Path separator of this platform.
inline const QString kPathSeparator = QStringLiteral("/");

/// Converts "\" in a path from configuration or user input to this platform's separator. A path that exists as written
/// is returned unchanged.
QString NativePath(const QString& path);

/// File operations by path; tests replace it by a fake.
class FileSystem {
  public:
    virtual ~FileSystem() = default;
    /// True for an existing entry that is not a folder.
    virtual bool FileExists(const QString& path) const = 0;
    /// Copies a plain file and replaces the target, if any. On failure false, and the target is unchanged; fails also
    /// if the target is a symbolic link, a folder or a device. Shows no message.
    virtual bool CopyFile(const QString& source, const QString& target) const = 0;
    /// True if the file does not exist afterwards.
    virtual bool RemoveFile(const QString& path) const = 0;
    virtual bool FolderExists(const QString& path) const = 0;
    /// Creates one folder; the parent must exist. Throws RuntimeError (58, 61, 70, 75 or 76) with the cause.
    virtual void CreateFolder(const QString& path) const = 0;
    /// Opens a file for writing under an exclusive lock and truncates it; creates it if missing. Null on failure or if
    /// another process has a lock; an existing file is then unchanged.
    virtual std::unique_ptr<OutputFile> OpenForOutput(const QString& path) const = 0;
    /// Creates an empty marker file with mode 0600. True also if this user created it before. False for any other entry
    /// of that name, including a symbolic link; nothing is opened or truncated.
    virtual bool CreateMark(const QString& path) const = 0;
};

class LocalFileSystem : public FileSystem {
  public:
    bool FileExists(const QString& path) const override;
    bool CopyFile(const QString& source, const QString& target) const override;
    bool RemoveFile(const QString& path) const override;
    bool FolderExists(const QString& path) const override;
    void CreateFolder(const QString& path) const override;
    std::unique_ptr<OutputFile> OpenForOutput(const QString& path) const override;
    bool CreateMark(const QString& path) const override;
};

}  // namespace platform
