#pragma once

#include <memory>
#include <optional>

#include "platform/Services.h"
#include "support/FileSizeLimit.h"

/// From the moment an output file is opened, no file of this process grows past a few bytes, as on a full disk, until
/// the object goes. It stands in for the file system.
class FullDisk {
  public:
    explicit FullDisk(qint64 room = 100) { platform::Services().files = std::make_unique<Files>(room); }
    ~FullDisk() { platform::Services().files = std::make_unique<platform::LocalFileSystem>(); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    class Files : public platform::LocalFileSystem {
      public:
        explicit Files(qint64 room) : room_(room) {}
        std::unique_ptr<platform::OutputFile> OpenForOutput(const QString& path) const override {
            auto file = LocalFileSystem::OpenForOutput(path);
            if (!full_) full_.emplace(room_);
            return file;
        }

      private:
        qint64 room_;
        mutable std::optional<FileSizeLimit> full_;
    };
};
