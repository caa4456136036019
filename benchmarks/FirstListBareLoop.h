#pragma once

#include <QString>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

struct sqlite3;
using OpenDatabase = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

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

    OpenDatabase database_;
    std::vector<QString> cells_;
    std::vector<int> views_;
    std::vector<std::pair<QString, QString>> eras_;
};

/// The least that a first list can cost with this engine: left joins, one read transaction, the bytes of all cells in
/// one block, eras and viewing log read once.
class FirstListLimit {
  public:
    explicit FirstListLimit(const QString& path);

    void Run(const QString& launcher);
    void Clear();
    int RowCount() const { return static_cast<int>(views_.size()); }

  private:
    void ReadViews(const QString& launcher);
    void ReadStaff();

    OpenDatabase database_;
    std::string cells_;
    std::vector<quint32> ends_;
    std::vector<int> views_;
    std::unordered_map<std::string, int> lastViews_;
    std::vector<std::pair<std::string, std::string>> eras_;
};
