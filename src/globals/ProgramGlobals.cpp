#include "globals/ProgramGlobals.h"

#include <memory>

namespace {
std::unique_ptr<ProgramGlobals>& Record() {
    static auto record = std::make_unique<ProgramGlobals>();
    return record;
}
}  // namespace

ProgramGlobals& Globals() { return *Record(); }

void ResetGlobals() { Record() = std::make_unique<ProgramGlobals>(); }
