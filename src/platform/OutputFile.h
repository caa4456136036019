#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <memory>

namespace platform {

/// A file that is written from its beginning to its end, in its place: no second file, no renaming, so that rights,
/// owner and links of an existing one stay. Nobody else who asks for a lock gets one meanwhile.
class OutputFile {
  public:
    /// Null where the file can't be opened for writing, or another program holds a lock on it; an existing file is
    /// then left as it is. Otherwise it is empty.
    static std::unique_ptr<OutputFile> Open(const QString& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Bytes go out in large pieces, so a full disk may show only later. RuntimeError.
    void Write(QByteArrayView bytes);
    /// Writes out what is left and closes the file. RuntimeError; a file that could not take the rest stays open.
    void Close();

  private:
    explicit OutputFile(int descriptor);
    void WriteOut();

    int descriptor_;
    QByteArray pending_;
};

/// Past a limit of the file size the system ends a program by a signal. From now on the write fails instead, as on a
/// full disk.
void LetWritesPastALimitFail();

}  // namespace platform
