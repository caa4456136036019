#pragma once

#include <memory>

#include "setup/storage/ForeignTables.h"

namespace setup {

/// A Jet or ACE database file, read with the mdbtools library; never written. Text is converted from UTF-16, or from
/// code page 932 in the oldest format (the environment variable MDB_JET3_CHARSET names another one). Dates are returned
/// as yyyymmdd, followed by a blank and hhnnss if they have a time; numbers as digits; yes/no as 1 or 0. A value is
/// Null in rows older than its column. Binary columns such as pictures are left out. Text longer than a megabyte is an
/// error, and so is a table whose row count differs from the one in the file.
///
/// The library may crash or hang on damaged files: use JetReader, which runs this class in a separate process.
class JetFile : public ForeignTables {
  public:
    /// Throws platform::RuntimeError if the file can't be read or has another format.
    explicit JetFile(const QString& path);
    ~JetFile() override;
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;

    QStringList Tables() const override { return tables_; }
    QStringList Columns(const QString& table) const override;
    void ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const override;

  private:
    class Handle;
    std::unique_ptr<Handle> handle_;
    QStringList tables_;
};

}  // namespace setup
