#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

namespace setup {

/// A Jet or ACE database file, read by the mdbtools library; never written.
class JetFile {
  public:
    /// Throws platform::RuntimeError where the file can't be read or has another format.
    explicit JetFile(const QString& path);
    ~JetFile();
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;

    /// The tables that people see, as they are spelled.
    const QStringList& Tables() const { return tables_; }
    /// Columns of one of them, in their order.
    QStringList Columns(const QString& table) const;
    /// Every row, with its values in the order of the columns; a Null is a null QString. Texts come from UTF-16, or
    /// from code page 932 in the oldest format; dates read yyyymmdd, with hhnnss behind a blank where they have a time;
    /// numbers as digits. Throws platform::RuntimeError for a text that is longer than a megabyte.
    void ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const;

  private:
    class Handle;
    std::unique_ptr<Handle> handle_;
    QStringList tables_;
};

}  // namespace setup
