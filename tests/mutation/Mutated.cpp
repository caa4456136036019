#include "Mutated.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>

namespace mutation {

int active = 0;
unsigned char* reached = nullptr;
int reachedSize = 0;

namespace {

// A shared mapping also keeps what a process reached that is killed or that leaves by _Exit.
void MapReached(const char* path) {
    const int file = open(path, O_RDWR | O_CLOEXEC);
    struct stat state {};
    if (file < 0 || fstat(file, &state) != 0) abort();
    void* const bytes = mmap(nullptr, static_cast<size_t>(state.st_size), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    close(file);
    if (bytes == MAP_FAILED) abort();
    reached = static_cast<unsigned char*>(bytes);
    reachedSize = static_cast<int>(state.st_size);
}

// Runs before the initialisers of the program's own variables, some of which are changed too.
__attribute__((constructor(101))) void ReadEnvironment() {
    if (const char* const number = getenv("MEIBO_MUTANT")) active = atoi(number);
    if (const char* const path = getenv("MEIBO_MUTATION_REACHED")) MapReached(path);
}

}  // namespace

}  // namespace mutation
