#pragma once

#include <sys/resource.h>

#include "platform/OutputFile.h"

/// While it exists, no file of this process can grow beyond `bytes`, as on a full disk.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(qint64 bytes) {
        platform::LetWritesPastALimitFail();
        getrlimit(RLIMIT_FSIZE, &kept_);
        const rlimit tight{static_cast<rlim_t>(bytes), kept_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &kept_); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit kept_ = {};
};
