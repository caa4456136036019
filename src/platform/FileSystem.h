#pragma once

#include <QString>

namespace platform {

/// Separator of folders on this platform, as it stands between the parts of every path the program builds.
inline const QString kPathSeparator = QStringLiteral("/");

/// The few things that the program asks of files by name.
class FileSystem {
  public:
    virtual ~FileSystem() = default;
    /// True for an existing file that is not a folder.
    virtual bool FileExists(const QString& path) const = 0;
    /// Copies over whatever stands at the target. A failure leaves no half copy at the target; no message.
    virtual bool CopyFile(const QString& source, const QString& target) const = 0;
};

class HostFileSystem : public FileSystem {
  public:
    bool FileExists(const QString& path) const override;
    bool CopyFile(const QString& source, const QString& target) const override;
};

}  // namespace platform
