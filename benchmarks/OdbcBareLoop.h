#pragma once

#include <sql.h>

#include <QString>
#include <vector>

/// The first list from a server directly on the driver manager's C API, as baseline: statements in the engine's syntax,
/// one snapshot, blocks of 100 rows in bound columns, a QString per cell, and prepared lookups with bound values per
/// row.
class OdbcBareLoop {
  public:
    /// `text` is the driver manager's connection string, `statement` the list query in the engine's syntax.
    OdbcBareLoop(const QString& text, QString statement);
    ~OdbcBareLoop();
    OdbcBareLoop(const OdbcBareLoop&) = delete;
    OdbcBareLoop& operator=(const OdbcBareLoop&) = delete;

    /// Reads the list again; with `lookUps` also six lookups of an era and one of the viewing log per row.
    void Run(const QString& launcher, bool lookUps);
    /// Frees the list and its memory.
    void Clear();
    int RowCount() const { return rows_; }

  private:
    void Execute(const char* sql) const;
    void ReadList();
    void LookUp(const QString& launcher);

    SQLHANDLE environment_ = nullptr;
    SQLHANDLE connection_ = nullptr;
    QString statement_;
    std::vector<QString> cells_;
    std::vector<QString> found_;
    int rows_ = 0;
    int columns_ = 0;
};
