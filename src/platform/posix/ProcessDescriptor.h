#pragma once

// The C library's header of process descriptors forgets to say that its functions are C.
extern "C" {
#include <sys/pidfd.h>
}
