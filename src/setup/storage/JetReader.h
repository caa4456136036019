#pragma once

#include <QIODevice>
#include <QString>
#include <memory>

#include "platform/LimitedProcess.h"
#include "setup/storage/JetFile.h"

namespace setup {

/// Process limits for a file of that size: enough for the largest file that the formats allow, on a slow machine.
platform::ProcessLimits JetReaderLimits(qint64 fileBytes);

/// Reads a Jet or ACE file with JetFile in a process with limited time and memory, so that a damaged file can't crash,
/// hang or exhaust this process. Every failure there becomes a platform::RuntimeError with a message for the user.
class JetReader : public ForeignTables {
  public:
    /// `program` is the path of suite-setup. Throws platform::RuntimeError if the file can't be read.
    JetReader(const QString& path, const QString& program);
    JetReader(const QString& path, const QString& program, const platform::ProcessLimits& limits);
    ~JetReader() override;
    JetReader(const JetReader&) = delete;
    JetReader& operator=(const JetReader&) = delete;

    QStringList Tables() const override { return tables_; }
    QStringList Columns(const QString& table) const override;
    void ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const override;
    /// Compares size and modification time of the file.
    void CheckUnchanged() const override;

  private:
    class Session;
    std::unique_ptr<Session> session_;
    QStringList tables_;
};

// The reader process (JetServer.cpp).

/// Internal verb that starts suite-setup as the reader process of a file. Standard input and output carry the frames of
/// TableStream.h.
inline const QString kJetServerVerb = QStringLiteral("read-jet-file");

/// Main loop of the reader process: answers requests from `in` until its end. An error is sent as the last answer. `in`
/// must be unbuffered.
void ServeJetFile(const QString& path, QIODevice& in, QIODevice& out);

/// Same, over standard input and output.
void ServeJetFile(const QString& path);

}  // namespace setup
