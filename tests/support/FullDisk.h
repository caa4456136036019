#pragma once

#include <sys/resource.h>

#include <memory>

#include "platform/OutputFile.h"
#include "platform/Services.h"

/// From the moment an output file is opened, no file of this process grows past a few bytes, as on a full disk, until
/// the object goes. It stands in for the file system.
class FullDisk {
  public:
    explicit FullDisk(rlim_t room = 100) {
        platform::LetWritesPastALimitFail();
        getrlimit(RLIMIT_FSIZE, &kept_);
        platform::Services().files = std::make_unique<Files>(rlimit{room, kept_.rlim_max});
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &kept_);
        platform::Services().files = std::make_unique<platform::HostFileSystem>();
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    class Files : public platform::HostFileSystem {
      public:
        explicit Files(const rlimit& tight) : tight_(tight) {}
        std::unique_ptr<platform::OutputFile> OpenForOutput(const QString& path) const override {
            auto file = HostFileSystem::OpenForOutput(path);
            setrlimit(RLIMIT_FSIZE, &tight_);
            return file;
        }

      private:
        rlimit tight_;
    };

    rlimit kept_ = {};
};
