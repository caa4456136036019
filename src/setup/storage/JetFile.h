#pragma once

#include <memory>

#include "setup/storage/ForeignTables.h"

namespace setup {

/// A Jet or ACE database file, read by the mdbtools library; never written. Texts come from UTF-16, or from code page
/// 932 in the oldest format (the environment variable MDB_JET3_CHARSET names another one); dates read yyyymmdd, with
/// hhnnss after a blank if they have a time; numbers are digits; a yes/no is 1 or 0. A value is Null in rows older than
/// its column. Columns of pictures and other bytes are left out. A text longer than a megabyte is a failure, and so is
/// a table with fewer or more rows than the file counts.
///
/// The library does not survive every damaged file: use JetReader, which runs this class in a process of its own.
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
