#include "faults/FailingFiles.h"

#include <QFileInfo>

#include "platform/RuntimeError.h"
#include "support/FileSizeLimit.h"

namespace {

constexpr qint64 kBlock = 16 * 1024;

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
        const FileSizeLimit full(at);
        return LocalFileSystem::CopyFile(source, target);
    }
    return LocalFileSystem::CopyFile(source, target);
}

bool FailingFiles::RemoveFile(const QString& path) const { return !Fails() && LocalFileSystem::RemoveFile(path); }

void FailingFiles::CreateFolder(const QString& path) const {
    if (Fails()) throw platform::RuntimeError(75, QStringLiteral("この装置では入出力ができません。"));
    LocalFileSystem::CreateFolder(path);
}

std::unique_ptr<platform::OutputFile> FailingFiles::OpenForOutput(const QString& path) const {
    return Fails() ? nullptr : LocalFileSystem::OpenForOutput(path);
}

bool FailingFiles::CreateMark(const QString& path) const { return !Fails() && LocalFileSystem::CreateMark(path); }

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
