#pragma once

/// The engine's memory, which can be told to run out.
namespace FailingMemory {

/// Once for the process, before the first database is opened. The engine then also asks for its smallest pieces one
/// by one.
void Install();
/// From now on the `point`-th allocation fails, that one alone.
void Arm(int point);
/// From now on allocations are only counted; so many were it. Any other planning ends it.
void Count();
int Counted();
/// For its length there is memory, and nothing is counted.
class Pause {
  public:
    Pause();
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

  private:
    int left_;
};

/// Memory for everybody again. True when an allocation has failed.
bool Disarm();

}  // namespace FailingMemory
