#pragma once

#include <QtGlobal>
#include <set>
#include <vector>

namespace platform {

/// The TCP connections that this process has opened since the object was created, whichever library opened them. Gives
/// access to the sockets of a library that does not return them, such as a database driver.
class NewConnections {
  public:
    NewConnections();
    ~NewConnections();
    NewConnections(const NewConnections&) = delete;
    NewConnections& operator=(const NewConnections&) = delete;

    /// Duplicates the descriptors of the connections that are open now and were not open at the construction. To be
    /// called once.
    void Take();
    /// True if none has been taken.
    bool IsEmpty() const { return taken_.empty(); }
    /// Shuts down both directions of the connections taken: calls that are blocked on them fail. Callable from any
    /// thread after Take.
    void ShutDown() const;

  private:
    std::set<quint64> earlier_;  // inodes
    std::vector<int> taken_;     // duplicates: the library may close its own, and the number may be reused
};

}  // namespace platform
