#pragma once

#include <QString>
#include <memory>

struct sqlite3;

/// Fakes another program of the suite that has a database file open, and possibly locked, while the object exists.
class OtherProgram {
  public:
    explicit OtherProgram(const QString& file);
    /// Runs statements; throws std::runtime_error with the engine's message.
    void Run(const QString& sql);

  private:
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> handle_;
};
