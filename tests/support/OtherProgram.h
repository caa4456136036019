#pragma once

#include <QString>
#include <memory>

struct sqlite3;

/// Another program of the suite that has a file open and may hold a lock on it, for as long as the object lives.
class OtherProgram {
  public:
    explicit OtherProgram(const QString& file);
    /// Runs statements; throws std::runtime_error with the engine's words.
    void Run(const QString& sql);

  private:
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> handle_;
};
