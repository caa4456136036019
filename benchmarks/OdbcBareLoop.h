#pragma once

#include <sql.h>

#include <QString>
#include <vector>

/// The first list from a server by hand, on the driver manager's C API alone: the statements in the engine's own words,
/// one snapshot, blocks of 100 rows into bound columns, a QString for each cell, and the small look-ups of each row
/// prepared once and run with bound values.
class OdbcBareLoop {
  public:
    /// `text` is the driver manager's connection string, `statement` the list's in the engine's words.
    OdbcBareLoop(const QString& text, QString statement);
    ~OdbcBareLoop();
    OdbcBareLoop(const OdbcBareLoop&) = delete;
    OdbcBareLoop& operator=(const OdbcBareLoop&) = delete;

    /// Reads the list anew, with six look-ups of an era and one of the viewing log for each row, or without any.
    void Run(const QString& launcher, bool lookUps);
    /// Throws the last list away, down to its memory.
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
