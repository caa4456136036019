#pragma once

#include "platform/FileSystem.h"

/// File system whose n-th operation fails: a block of a copy, a removal, a new folder, the opening of an output file, a
/// marker file.
class FailingFiles : public platform::LocalFileSystem {
  public:
    bool CopyFile(const QString& source, const QString& target) const override;
    bool RemoveFile(const QString& path) const override;
    void CreateFolder(const QString& path) const override;
    std::unique_ptr<platform::OutputFile> OpenForOutput(const QString& path) const override;
    bool CreateMark(const QString& path) const override;

    /// The `point`-th operation from now on fails; if `lasting`, all later ones too.
    void Arm(int point, bool lasting);
    /// True if an operation has failed.
    bool Disarm();

  private:
    bool Fails() const;

    mutable int left_ = 0;
    mutable bool failed_ = false;
    bool lasting_ = false;
};
