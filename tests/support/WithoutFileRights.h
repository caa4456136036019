#pragma once

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>

/// Scope in which file permissions apply to this thread even if root runs the tests. Switching to another user is no
/// alternative, since that user may not be able to access the tests' folder.
class WithoutFileRights {
  public:
    WithoutFileRights() {
        syscall(SYS_capget, &header_, kept_);
        constexpr std::uint32_t kOverFiles = (1U << CAP_DAC_OVERRIDE) | (1U << CAP_DAC_READ_SEARCH);
        __user_cap_data_struct given[_LINUX_CAPABILITY_U32S_3] = {kept_[0], kept_[1]};
        given[0].effective &= ~kOverFiles;
        syscall(SYS_capset, &header_, given);
    }
    ~WithoutFileRights() { syscall(SYS_capset, &header_, kept_); }
    WithoutFileRights(const WithoutFileRights&) = delete;
    WithoutFileRights& operator=(const WithoutFileRights&) = delete;

  private:
    __user_cap_header_struct header_ = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct kept_[_LINUX_CAPABILITY_U32S_3] = {};
};
