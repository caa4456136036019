#pragma once

#include <memory>

#include "platform/LimitedProcess.h"
#include "setup/storage/ForeignTables.h"

namespace setup {

/// Limits for a file of that size: enough for the largest file that the formats allow, on a slow machine.
platform::ProcessLimits JetReaderLimits(qint64 fileBytes);

/// A Jet or ACE file, read by JetFile in a process with limits of time and memory, so that no damaged file can crash,
/// hang or fill this process. Whatever goes wrong there is a platform::RuntimeError with a message for people.
class JetReader : public ForeignTables {
  public:
    /// `program` is the suite-setup to start. Throws platform::RuntimeError if the file can't be read.
    JetReader(const QString& path, const QString& program);
    JetReader(const QString& path, const QString& program, const platform::ProcessLimits& limits);
    ~JetReader() override;
    JetReader(const JetReader&) = delete;
    JetReader& operator=(const JetReader&) = delete;

    QStringList Tables() const override { return tables_; }
    QStringList Columns(const QString& table) const override;
    void ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const override;
    /// By the size and the time of the last change of the file.
    void CheckUnchanged() const override;

  private:
    class Session;
    std::unique_ptr<Session> session_;
    QStringList tables_;
};

}  // namespace setup
