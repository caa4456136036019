#pragma once

#include <QString>
#include <memory>

#include "platform/OutputFile.h"

namespace platform {

/// Separator of folders on this platform, as it stands between the parts of every path the program builds.
inline const QString kPathSeparator = QStringLiteral("/");

/// A path that somebody else wrote down, with the separators of this platform. What exists as it is written is taken
/// as it is written.
QString NativePath(const QString& path);

/// The few things that the program asks of files by name.
class FileSystem {
  public:
    virtual ~FileSystem() = default;
    /// True for an existing file that is not a folder.
    virtual bool FileExists(const QString& path) const = 0;
    /// Copies a plain file over the one at the target, if any. False, with the target as it was, also where the target
    /// is a link, a folder or a device; no message.
    virtual bool CopyFile(const QString& source, const QString& target) const = 0;
    /// True when it is gone, also where there was none.
    virtual bool RemoveFile(const QString& path) const = 0;
    virtual bool FolderExists(const QString& path) const = 0;
    /// Makes one folder in a folder that exists. RuntimeError with what stood in the way.
    virtual void CreateFolder(const QString& path) const = 0;
    /// Opens a file for output, for this program alone, and empties it; makes it where it is missing. Nothing where
    /// that fails or somebody else holds a lock on it; an existing file is then left as it is.
    virtual std::unique_ptr<OutputFile> OpenForOutput(const QString& path) const = 0;
    /// Makes an empty file whose existence says something; only its user may open it. True also when this user has made
    /// it before. False for anything else of that name, a link included: nothing is opened or emptied.
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
