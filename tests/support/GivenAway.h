#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QString>
#include <stdexcept>

/// The unprivileged user that exists on every machine.
inline constexpr uid_t kNobody = 65534;

/// Changes the owner of a file, a folder or a link itself; requires root.
inline void GiveTo(uid_t user, const QString& path) {
    if (::lchown(QFile::encodeName(path).constData(), user, static_cast<gid_t>(-1)) != 0)
        throw std::runtime_error("cannot give away " + path.toStdString());
}

inline mode_t ModeOf(const QString& path) {
    struct stat state = {};
    return ::lstat(QFile::encodeName(path).constData(), &state) == 0 ? state.st_mode & ALLPERMS : 0;
}

inline void SetModeOf(const QString& path, mode_t mode) {
    if (::chmod(QFile::encodeName(path).constData(), mode) != 0)
        throw std::runtime_error("cannot set the mode of " + path.toStdString());
}

inline void MakeLink(const QString& target, const QString& path) {
    if (::symlink(QFile::encodeName(target).constData(), QFile::encodeName(path).constData()) != 0)
        throw std::runtime_error("cannot link " + path.toStdString());
}

/// Skips tests with files of another user. A macro, since only the test's own body can skip.
#define REQUIRE_SUPERUSER() \
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files to another user"
