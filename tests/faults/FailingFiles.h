#pragma once

#include "platform/FileSystem.h"

/// Files of the host whose n-th step fails: a block of a copy, a removal, a new folder, the opening of an output, a
/// mark.
class FailingFiles : public platform::LocalFileSystem {
  public:
    bool CopyFile(const QString& source, const QString& target) const override;
    bool RemoveFile(const QString& path) const override;
    void CreateFolder(const QString& path) const override;
    std::unique_ptr<platform::OutputFile> OpenForOutput(const QString& path) const override;
    bool CreateMark(const QString& path) const override;

    /// `point` steps more and one fails; with `lasting` all behind it as well.
    void Arm(int point, bool lasting);
    /// True when a step has failed.
    bool Disarm();

  private:
    bool Fails() const;

    mutable int left_ = 0;
    mutable bool failed_ = false;
    bool lasting_ = false;
};
