#pragma once

#include <QString>
#include <memory>
#include <vector>

struct sqlite3;

/// The first list by hand, on the engine's C API alone: left joins, one read transaction, a QString for each cell,
/// the eras read once, one prepared look-up of the viewing log for each row.
class FirstListBareLoop {
  public:
    explicit FirstListBareLoop(const QString& path);

    /// Reads the list anew. `launcher` is the code whose views are looked up.
    void Run(const QString& launcher);
    /// Throws the last list away, down to its memory.
    void Clear();
    int RowCount() const { return static_cast<int>(views_.size()); }

  private:
    void ReadEras();
    void ReadStaff(const QString& launcher);

    std::unique_ptr<sqlite3, int (*)(sqlite3*)> database_;
    std::vector<QString> cells_;
    std::vector<int> views_;
    std::vector<std::pair<QString, QString>> eras_;
};
