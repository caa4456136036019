#pragma once

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>

/// Scope in which this thread has the user id kNobody but can still access every file. Requires root.
class AsOtherUser {
  public:
    static bool IsPossible() { return ::geteuid() == 0; }

    AsOtherUser() {
        Become(kNobody);
        __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
        __user_cap_data_struct rights[_LINUX_CAPABILITY_U32S_3] = {};
        syscall(SYS_capget, &header, rights);
        rights[0].effective |= 1U << CAP_DAC_OVERRIDE;
        syscall(SYS_capset, &header, rights);
    }
    ~AsOtherUser() { Become(0); }
    AsOtherUser(const AsOtherUser&) = delete;
    AsOtherUser& operator=(const AsOtherUser&) = delete;

    static constexpr uid_t kNobody = 65534;

  private:
    // The raw system call: the C library's function changes all threads.
    static void Become(uid_t user) { syscall(SYS_setresuid, -1, user, -1); }
};
