#include "faults/FailingFiles.h"

#include <sys/resource.h>

#include <QFileInfo>

#include "platform/RuntimeError.h"

namespace {

constexpr qint64 kBlock = 16 * 1024;

/// For its length no file of the process grows past so many bytes, as on a full disk.
class FullBehind {
  public:
    explicit FullBehind(qint64 bytes) {
        platform::LetWritesPastALimitFail();
        getrlimit(RLIMIT_FSIZE, &kept_);
        const rlimit tight{static_cast<rlim_t>(bytes), kept_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~FullBehind() { setrlimit(RLIMIT_FSIZE, &kept_); }
    FullBehind(const FullBehind&) = delete;
    FullBehind& operator=(const FullBehind&) = delete;

  private:
    rlimit kept_ = {};
};

}  // namespace

bool FailingFiles::Fails() const {
    const bool fails = left_ > 0 ? --left_ == 0 : failed_ && lasting_;
    failed_ = failed_ || fails;
    return fails;
}

bool FailingFiles::CopyFile(const QString& source, const QString& target) const {
    const qint64 size = QFileInfo(source).size();
    for (qint64 at = 0; at < size; at += kBlock) {
        if (!Fails()) continue;
        const FullBehind full(at);
        return HostFileSystem::CopyFile(source, target);
    }
    return HostFileSystem::CopyFile(source, target);
}

bool FailingFiles::RemoveFile(const QString& path) const { return !Fails() && HostFileSystem::RemoveFile(path); }

void FailingFiles::CreateFolder(const QString& path) const {
    if (Fails()) throw platform::RuntimeError(75, QStringLiteral("この装置では入出力ができません。"));
    HostFileSystem::CreateFolder(path);
}

std::unique_ptr<platform::OutputFile> FailingFiles::OpenForOutput(const QString& path) const {
    return Fails() ? nullptr : HostFileSystem::OpenForOutput(path);
}

void FailingFiles::Arm(int point, bool lasting) {
    left_ = point;
    failed_ = false;
    lasting_ = lasting;
}

bool FailingFiles::Disarm() {
    left_ = 0;
    lasting_ = false;
    return failed_;
}
