#pragma once

// This glibc header lacks extern "C".
extern "C" {
#include <sys/pidfd.h>
}
