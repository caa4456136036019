#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <memory>

namespace platform {

/// A file written sequentially in place, without a temporary file and rename, so that owner, mode and links of an
/// existing file are kept. Locked exclusively while open.
class OutputFile {
  public:
    /// Opens and truncates the file. Null if it can't be opened for writing or another process has a lock on it; an
    /// existing file is then unchanged.
    static std::unique_ptr<OutputFile> Open(const QString& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Buffered: a full disk may be reported by a later call. Throws RuntimeError.
    void Write(QByteArrayView bytes);
    /// Writes the rest of the buffer and closes. Throws RuntimeError; if the write failed, the file stays open.
    void Close();

  private:
    explicit OutputFile(int descriptor);
    void WriteOut();

    int descriptor_;
    QByteArray pending_;
};

/// By default SIGXFSZ kills a process that exceeds its file size limit. After this call the write fails instead, like
/// on a full disk.
void LetWritesPastALimitFail();

}  // namespace platform
