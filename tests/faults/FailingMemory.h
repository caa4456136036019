#pragma once

/// Fault injection for the engine's memory allocator.
namespace FailingMemory {

/// Call once per process, before the first database is opened. Also disables the engine's pool for small allocations.
void Install();
/// The `point`-th allocation from now on fails, and no other.
void Arm(int point);
/// Count only counts allocations, until the next call of Arm or Disarm; Counted returns the number.
void Count();
int Counted();
/// Scope in which allocations neither fail nor count.
class Pause {
  public:
    Pause();
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

  private:
    int left_;
};

/// Ends the injection. True if an allocation has failed.
bool Disarm();

}  // namespace FailingMemory
