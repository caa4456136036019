#pragma once

#include <QString>
#include <memory>

#include "platform/OutputFile.h"

namespace platform {

/// Path separator of this platform.
inline const QString kPathSeparator = QStringLiteral("/");

/// Replaces each "\" in a path from configuration or user input by this platform's separator. A path that exists as
/// written is returned unchanged.
QString NativePath(const QString& path);

/// File operations by path; tests replace it by a fake. FolderExists, CreateFolder and OpenForOutput convert the path
/// by NativePath; the others do not.
class FileSystem {
  public:
    virtual ~FileSystem() = default;
    /// True for a regular file; symbolic links are followed.
    virtual bool FileExists(const QString& path) const = 0;
    /// Copies a regular file and replaces the target, if any. On failure false, and the target is unchanged; fails also
    /// if the target is a symbolic link or exists and is not a regular file. Shows no message.
    virtual bool CopyFile(const QString& source, const QString& target) const = 0;
    /// True if the file does not exist afterwards.
    virtual bool RemoveFile(const QString& path) const = 0;
    virtual bool FolderExists(const QString& path) const = 0;
    /// Creates one folder with the umask's mode. Throws RuntimeError with a Japanese description or the system's text:
    /// 58 the name exists, 61 the disk is full, 70 no permission or read-only, 76 the parent does not exist, 75 any
    /// other cause.
    virtual void CreateFolder(const QString& path) const = 0;
    /// Opens a file for writing by OutputFile::Open. Null on failure, or if another process has a lock on it.
    virtual std::unique_ptr<OutputFile> OpenForOutput(const QString& path) const = 0;
    /// Creates an empty marker file with mode 0600. True also if a regular file of this user has that name already; its
    /// content is not changed. False on failure and for any other entry of that name, including a symbolic link.
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
