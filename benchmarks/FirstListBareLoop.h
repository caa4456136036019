#pragma once

#include <QString>
#include <memory>
#include <vector>

struct sqlite3;

/// The first list directly on SQLite's C API, as baseline: left joins, one read transaction, a QString per cell, the
/// eras read once, and one prepared query of the viewing log per row.
class FirstListBareLoop {
  public:
    explicit FirstListBareLoop(const QString& path);

    /// Reads the list again. `launcher` is the staff code whose views are counted.
    void Run(const QString& launcher);
    /// Frees the list and its memory.
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
