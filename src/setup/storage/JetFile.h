#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

namespace setup {

/// Read access to tables made by another program.
class ForeignTables {
  public:
    virtual ~ForeignTables() = default;
    /// Names of the user tables in their original spelling.
    virtual QStringList Tables() const = 0;
    /// Columns of one of these tables, in order.
    virtual QStringList Columns(const QString& table) const = 0;
    /// Calls `take` with the values of each row in the order of the columns; a Null is a null QString. Throws
    /// platform::RuntimeError.
    virtual void ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const = 0;
    /// Call after the last row, before committing anything that was read. Throws platform::RuntimeError if the tables
    /// changed while they were read.
    virtual void CheckUnchanged() const {}
};

/// Reads the header only. Rejects a path that is not a complete database file in the formats Jet 3, Jet 4 or ACE: a
/// folder, pipe or device, another format, a file that ends within a page or is larger than the formats allow. Throws
/// platform::RuntimeError.
void CheckJetFile(const QString& path);

/// A stored date as yyyymmdd, followed by a blank and hhnnss unless it is midnight or `withoutTime`. `days` counts from
/// 1899-12-30; the fraction is the time of day, also of negative numbers. Empty for years outside 100 to 9999, which no
/// program writes.
std::optional<QString> JetDate(double days, bool withoutTime);

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
