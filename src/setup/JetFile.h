#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

namespace setup {

/// Tables that another program has made, to be read.
class ForeignTables {
  public:
    virtual ~ForeignTables() = default;
    /// The tables that people see, as they are spelled.
    virtual QStringList Tables() const = 0;
    /// Columns of one of them, in their order.
    virtual QStringList Columns(const QString& table) const = 0;
    /// Every row, with its values in the order of the columns; a Null is a null QString. Throws platform::RuntimeError.
    virtual void ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const = 0;
};

/// A Jet or ACE database file, read by the mdbtools library; never written. Texts come from UTF-16, or from code page
/// 932 in the oldest format; dates read yyyymmdd, with hhnnss behind a blank where they have a time; numbers are
/// digits. A text that is longer than a megabyte is a failure, and so is a table with fewer or more rows than the file
/// counts.
class JetFile : public ForeignTables {
  public:
    /// Throws platform::RuntimeError where the file can't be read or has another format.
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
