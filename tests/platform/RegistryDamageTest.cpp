// Full disk, size limits, damaged and special files.

#include "platform/RegistryFixture.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>
#include <chrono>

#include "support/FileBytes.h"
#include "support/FileSizeLimit.h"
#include "support/FullDiskSizes.h"

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

mode_t ModeOf(const QString& path) {
    struct stat state = {};
    return ::stat(QFile::encodeName(path).constData(), &state) == 0 ? state.st_mode & ALLPERMS : 0;
}

void MakeSocket(const QByteArray& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(static_cast<size_t>(path.size()), sizeof address.sun_path);
    std::copy(path.begin(), path.end(), address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(socket);
}

}  // namespace

TEST_F(RegistryTest, DamagedFileIsToldAndNeverWrittenOver) {
    RegistryKey key = Made(kOffice);
    for (const QByteArray& damage :
         {QByteArray("[Software]\nPath=x\n"), QByteArray("\"Path\"=\"x\"\n"), QByteArray("[a]\n\"b\"=\"c\n"),
          QByteArray("[a]\n\"b\"=c\n"), QByteArray("[a]\n\"b\"=\"\\q\"\n"), QByteArray("[a]\n\"b\"=\"c\"d\n")}) {
        WriteBytes(UserFile(), damage);
        EXPECT_EQ(SetText(key, u"Path"_s, u"x"_s), kRegistryDamaged) << damage.toStdString();
        EXPECT_EQ(Text(UserRoot(), kOffice, u"Path"_s), u"status 1015"_s);
        EXPECT_EQ(ReadBytes(UserFile()), damage);
    }
}

TEST_F(RegistryTest, EveryFullDiskLeavesTheOldFileAndIsReported) {
    constexpr qint64 kAroundTheText = 11;  // length of [a] "v"="" with line ends
    const RegistryKey key = Made(u"a"_s);
    for (const qint64 size : kSizesAroundBuffers) {
        if (size > kMaxRegistryBytes) continue;
        const QString text(qMax<qint64>(0, size - kAroundTheText), u'x');
        ASSERT_EQ(SetText(key, u"v"_s, u"old"_s), kRegistryDone);
        const QByteArray old = ReadBytes(UserFile());
        for (const qint64 limit : FullAfter(text.size() + kAroundTheText)) {
            long status = kRegistryDone;
            {
                const FileSizeLimit full(limit);
                status = SetText(key, u"v"_s, text);
            }
            EXPECT_EQ(status, kRegistryNotWritten) << size << " bytes, full after " << limit;
            EXPECT_EQ(ReadBytes(UserFile()), old) << size << " bytes, full after " << limit;
        }
        EXPECT_EQ(SetText(key, u"v"_s, text), kRegistryDone);
        EXPECT_EQ(ReadBytes(UserFile()).size(), text.size() + kAroundTheText);
    }
}

TEST_F(RegistryTest, WhatIsWrittenIsNeverLongerThanWhatIsRead) {
    const RegistryKey key = Made(u"a"_s);
    const QString longest(kMaxRegistryBytes - 11, u'x');
    EXPECT_EQ(SetText(key, u"v"_s, longest + u'x'), kRegistryNotWritten);
    EXPECT_EQ(ReadBytes(UserFile()), "[a]\n");
    EXPECT_EQ(SetText(key, u"v"_s, longest), kRegistryDone);
    EXPECT_EQ(SetText(key, u"w"_s, QString()), kRegistryNotWritten);
    EXPECT_EQ(SetText(key, u"v"_s, u"short"_s), kRegistryDone);
    WriteBytes(UserFile(), QByteArray(kMaxRegistryBytes + 1, '\n'));
    EXPECT_EQ(Text(UserRoot(), u"a"_s, u"v"_s), u"status 1015"_s);
}

TEST_F(RegistryTest, DepthAndLengthOfNamesAreBounded) {
    QStringList names(kMaxKeyDepth, QString(kMaxNameLength, u'k'));
    const QString deepest = names.join(u'\\');
    const RegistryKey key = Made(deepest);
    EXPECT_EQ(SetText(key, QString(kMaxNameLength, u'v'), u"x"_s), kRegistryDone);
    EXPECT_EQ(Text(UserRoot(), deepest, QString(kMaxNameLength, u'v')), u"x"_s);
    const QByteArray kept = ReadBytes(UserFile());
    RegistryKey made;
    EXPECT_EQ(registry.CreateKey(key, u"k"_s, kRegistryAll, made), kRegistryBadName);
    for (const QString& path :
         {QString(kMaxNameLength + 1, u'n'), QString(kMaxKeyDepth, u'\\'), QString(1 << 20, u'\\'), u"line\nend"_s,
          u"nul"_s + QChar(u'\0'), u"half "_s + QChar(0xD842)})
        EXPECT_EQ(registry.CreateKey(UserRoot(), path, kRegistryAll, made), kRegistryBadName);
    EXPECT_EQ(SetText(key, QString(kMaxNameLength + 1, u'v'), u"x"_s), kRegistryBadName);
    EXPECT_EQ(ReadBytes(UserFile()), kept);
}

TEST_F(RegistryTest, FileWithNamesOutOfBoundsIsDamaged) {
    const QByteArray name(kMaxNameLength, 'n');
    for (const QByteArray& text :
         {"[" + name + "n]\n", "[" + QByteArray(kMaxKeyDepth, '\\') + "]\n", "[" + QByteArray(900000, '\\') + "]\n",
          "[a]\n\"" + name + "n\"=1\n", QByteArray("[a\xff]\n"), QByteArray("[a]\n\"b\"=\"\xe3\x81\"\n"),
          QByteArray("[a\rb]\n"), QByteArray("[a\0b]\n", 6), QByteArray(4096, '\0')}) {
        WriteBytes(UserFile(), text);
        EXPECT_EQ(Text(UserRoot(), u"a"_s, u"b"_s), u"status 1015"_s) << text.left(40).toStdString();
        RegistryKey made;
        EXPECT_EQ(registry.CreateKey(UserRoot(), u"a"_s, kRegistryAll, made), kRegistryDamaged);
        EXPECT_EQ(ReadBytes(UserFile()), text);
    }
    WriteBytes(UserFile(), "[" + name + "]\n\"" + name + "\"=1\n");
    EXPECT_EQ(Text(UserRoot(), QString::fromLatin1(name), u"b"_s), u"status 2"_s);
}

TEST_F(RegistryTest, LockBelongsToItsWriterAlone) {
    const QString lock = UserFile() + u".lock"_s;
    Made(kOffice);
    EXPECT_EQ(ModeOf(lock), 0600U);
    ASSERT_EQ(::chmod(QFile::encodeName(lock).constData(), 0644), 0);
    Made(kOffice + u"\\Deep"_s);
    EXPECT_EQ(ModeOf(lock), 0600U) << "as an earlier version has left it";
}

TEST_F(RegistryTest, LinkInPlaceOfTheLockIsDeniedAndNotFollowed) {
    const QString letter = folder.filePath(u"letter"_s);
    WriteBytes(letter, "private");
    ASSERT_EQ(::chmod(QFile::encodeName(letter).constData(), 0644), 0);
    ASSERT_TRUE(QFile::link(letter, UserFile() + u".lock"_s));
    RegistryKey key;
    EXPECT_EQ(registry.CreateKey(UserRoot(), kOffice, kRegistryAll, key), kRegistryDenied);
    EXPECT_EQ(ModeOf(letter), 0644U);
    EXPECT_FALSE(QFile::exists(UserFile()));
}

TEST_F(RegistryTest, LockThatIsHeldForLongEndsTheWriteAfterFiveSeconds) {
    const RegistryKey key = Made(kOffice);
    const QByteArray before = ReadBytes(UserFile());
    const int lock = ::open(QFile::encodeName(UserFile() + u".lock"_s).constData(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(SetText(key, u"Path"_s, u"x"_s), kRegistryLocked);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    ::close(lock);
    EXPECT_EQ(ReadBytes(UserFile()), before);
    EXPECT_EQ(SetText(key, u"Path"_s, u"x"_s), kRegistryDone);
}

/// Non-regular file in place of the registry file, and how to create it.
struct SpecialFile {
    const char* name;
    void (*make)(const QByteArray& path);
};

class SpecialRegistryFile : public RegistryTest, public ::testing::WithParamInterface<SpecialFile> {
  protected:
    void MakeSpecial(const QString& path) const { GetParam().make(QFile::encodeName(path)); }
    static mode_t TypeOf(const QString& path) {
        struct stat state = {};
        ::lstat(QFile::encodeName(path).constData(), &state);
        return state.st_mode & S_IFMT;
    }
};

TEST_P(SpecialRegistryFile, IsDamagedAndNeitherWaitedForNorReplaced) {
    MakeSpecial(UserFile());
    const mode_t type = TypeOf(UserFile());
    EXPECT_EQ(Text(UserRoot(), kOffice, u"Path"_s), u"status 1015"_s);
    RegistryKey key;
    EXPECT_EQ(registry.CreateKey(UserRoot(), kOffice, kRegistryAll, key), kRegistryDamaged);
    EXPECT_EQ(SetText({RegistryRoot::CurrentUser, kOffice, kRegistryAll, true}, u"Path"_s, u"x"_s), kRegistryDamaged);
    EXPECT_EQ(TypeOf(UserFile()), type);
}

TEST_P(SpecialRegistryFile, InPlaceOfTheLockIsDeniedAtOnce) {
    const QString lock = UserFile() + u".lock"_s;
    MakeSpecial(lock);
    const mode_t type = TypeOf(lock);
    RegistryKey key;
    EXPECT_EQ(registry.CreateKey(UserRoot(), kOffice, kRegistryAll, key), kRegistryDenied);
    EXPECT_FALSE(QFile::exists(UserFile()));
    EXPECT_EQ(TypeOf(lock), type);
}
INSTANTIATE_TEST_SUITE_P(
    Of, SpecialRegistryFile,
    testing::Values(
        SpecialFile{"Pipe", [](const QByteArray& path) { ASSERT_EQ(::mkfifo(path.constData(), 0600), 0); }},
        SpecialFile{"Folder", [](const QByteArray& path) { ASSERT_EQ(::mkdir(path.constData(), 0700), 0); }},
        SpecialFile{"Device", [](const QByteArray& path) { ASSERT_EQ(::symlink("/dev/zero", path.constData()), 0); }},
        SpecialFile{"Socket", MakeSocket}),
    [](const auto& special) { return special.param.name; });
