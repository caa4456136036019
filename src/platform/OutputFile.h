#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <memory>

namespace platform {

/// A file written sequentially in place, without a temporary file and rename, so that owner, mode and links of an
/// existing file are kept. Locked exclusively while open. Call Close at the end: the destructor closes the file without
/// writing the rest of the buffer.
class OutputFile {
  public:
    /// Opens and truncates the file; creates it if it is missing. Never blocks. Null if it can't be opened for writing
    /// or another process has a lock on it; an existing file is then unchanged.
    static std::unique_ptr<OutputFile> Open(const QString& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Both throw RuntimeError with the system's text: 61 if the disk, quota or file size limit is exceeded, otherwise
    // 57.

    /// Appends bytes to a buffer, which is written in large blocks: a full disk may be reported by a later call.
    void Write(QByteArrayView bytes);
    /// Writes the rest of the buffer and closes the file. If the write failed, the file stays open.
    void Close();

  private:
    explicit OutputFile(int descriptor);
    void WriteOut();

    int descriptor_;
    QByteArray pending_;
};

/// By default SIGXFSZ kills a process that exceeds its file size limit (ulimit -f). After this call the write fails
/// instead, as on a full disk. To be called once at the start of the program.
void LetWritesPastALimitFail();

}  // namespace platform
