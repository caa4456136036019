#pragma once

#include <memory>
#include <optional>

#include "platform/Services.h"
#include "support/FileSizeLimit.h"

/// Fake file system: once an output file is opened, no file of this process can grow beyond a few bytes, as on a full
/// disk, until the object is destroyed.
class FullDisk {
  public:
    explicit FullDisk(qint64 limit = 100) { platform::Services().files = std::make_unique<Files>(limit); }
    ~FullDisk() { platform::Services().files = std::make_unique<platform::LocalFileSystem>(); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    class Files : public platform::LocalFileSystem {
      public:
        explicit Files(qint64 limit) : limit_(limit) {}
        std::unique_ptr<platform::OutputFile> OpenForOutput(const QString& path) const override {
            auto file = LocalFileSystem::OpenForOutput(path);
            if (!full_) full_.emplace(limit_);
            return file;
        }

      private:
        qint64 limit_;
        mutable std::optional<FileSizeLimit> full_;
    };
};
