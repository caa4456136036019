// Whatever the reader process does, the worst effect is that the import fails with one message.

#include "setup/storage/JetReader.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "platform/RuntimeError.h"
#include "setup/storage/TableStream.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;
using setup::EncodeFrame;
using setup::FrameKind;

namespace {

const QString kFile = QStringLiteral(SUITE_SOURCES) + u"/tests/setup/jet/general.mdb"_s;
const QString kDamaged = u" を最後まで読めません。ファイルが壊れています。何も取り込んでいません。"_s;
const QString kTooLong =
    u" の読み取りが時間内に終わりません。ファイルが壊れているおそれがあります。何も取り込んでいません。"_s;

class JetReaders : public testing::Test {
  protected:
    /// A shell script that replaces suite-setup.
    QString Program(const QByteArray& script) {
        const QString path = folder.filePath(u"suite-setup"_s);
        WriteBytes(path, "#!/bin/sh\n" + script + '\n');
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }
    /// A program that sends the same bytes for every request.
    QString Answering(const QByteArray& answers) {
        WriteBytes(folder.filePath(u"answers"_s), answers);
        return Program("cat " + QFile::encodeName(folder.filePath(u"answers"_s)) + "; sleep 60");
    }
    /// Error message of reading the rows of a table; empty on success.
    QString Failure(const QString& program, const platform::ProcessLimits& limits = {}) {
        try {
            const setup::JetReader reader(kFile, program, limits);
            reader.ReadRows(u"M役職"_s, [this](const QStringList& values) { rows.append(values); });
        } catch (const platform::RuntimeError& error) {
            return error.Description();
        }
        return {};
    }

    QTemporaryDir folder;
    QList<QStringList> rows;
    QByteArray names = EncodeFrame({FrameKind::Names, {u"M役職"_s}});
    QByteArray row = EncodeFrame({FrameKind::Row, {u"10"_s, QString()}});
};

}  // namespace

TEST_F(JetReaders, RowsCountedByTheReaderAreTaken) {
    EXPECT_EQ(Failure(Answering(names + row + row + EncodeFrame({FrameKind::End, {u"2"_s}}))), QString());
    EXPECT_EQ(rows, (QList<QStringList>{{u"10"_s, QString()}, {u"10"_s, QString()}}));
}

TEST_F(JetReaders, AnotherCountOfRowsIsADamagedFile) {
    EXPECT_EQ(Failure(Answering(names + row + EncodeFrame({FrameKind::End, {u"2"_s}}))), kFile + kDamaged);
}

TEST_F(JetReaders, AFailureOfTheReaderIsTheMessageOnOneLine) {
    EXPECT_EQ(Failure(Answering(names + EncodeFrame({FrameKind::Failure, {u"表 x\x1b[2J\n が壊れています。"_s}}))),
              u"表 x [2J  が壊れています。何も取り込んでいません。"_s);
}

TEST_F(JetReaders, AReaderThatCrashesIsADamagedFile) {
    EXPECT_EQ(Failure(Program("kill -SEGV $$")), kFile + kDamaged);
    EXPECT_EQ(Failure(Program("exit 0")), kFile + kDamaged);
}

TEST_F(JetReaders, AnswersThatAreNoFramesAreADamagedFile) {
    EXPECT_EQ(Failure(Answering("\xff\xff\xff\xff")), kFile + kDamaged);
    EXPECT_EQ(Failure(Answering(QByteArray("\1\0\0\0X", 5))), kFile + kDamaged);
    EXPECT_EQ(Failure(Answering(row)), kFile + kDamaged);
    EXPECT_EQ(Failure(Answering(names + names)), kFile + kDamaged);
}

TEST_F(JetReaders, MoreThanTheFileCanHoldIsADamagedFile) {
    const QByteArray big = EncodeFrame({FrameKind::Row, {QString(1 << 19, u'x')}});
    WriteBytes(folder.filePath(u"big"_s), big);
    const QByteArray loop = "; while cat " + QFile::encodeName(folder.filePath(u"big"_s)) + "; do :; done";
    WriteBytes(folder.filePath(u"names"_s), names);
    EXPECT_EQ(Failure(Program("cat " + QFile::encodeName(folder.filePath(u"names"_s)) + loop)), kFile + kDamaged);
    EXPECT_LT(rows.size(), 128);
    rows.clear();
    WriteBytes(folder.filePath(u"big"_s), EncodeFrame({FrameKind::Row, {}}).repeated(1000));
    EXPECT_EQ(Failure(Program("cat " + QFile::encodeName(folder.filePath(u"names"_s)) + loop)), kFile + kDamaged);
    EXPECT_EQ(rows.size(), QFile(kFile).size() / 3);
}

TEST_F(JetReaders, MoreColumnsThanATableCanHaveAreADamagedFile) {
    const QByteArray most = EncodeFrame({FrameKind::Names, QStringList(setup::kMostColumns, u"列"_s)});
    const QByteArray more = EncodeFrame({FrameKind::Names, QStringList(setup::kMostColumns + 1, u"列"_s)});
    const setup::JetReader reader(kFile, Answering(names + most + more), {});
    EXPECT_EQ(reader.Columns(u"M役職"_s).size(), setup::kMostColumns);
    try {
        reader.Columns(u"M役職"_s);
        FAIL();
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.Description(), kFile + kDamaged);
    }
}

TEST_F(JetReaders, AReaderThatRunsOrIsSilentForTooLongIsKilled) {
    EXPECT_EQ(Failure(Program("while :; do :; done"), {.cpuSeconds = 1}), kFile + kTooLong);
    EXPECT_EQ(Failure(Program("exec sleep 600"), {.waitMilliseconds = 300}), kFile + kTooLong);
}

TEST_F(JetReaders, AProgramThatCannotBeStartedIsNamed) {
    const QString program = folder.filePath(u"missing"_s);
    EXPECT_EQ(Failure(program), u"ファイルを読むプログラム "_s + program + u" を起動できません。"_s);
}

TEST_F(JetReaders, AFileThatGrowsOrIsReplacedDuringTheReadIsAFailure) {
    const QString copy = folder.filePath(u"copy.mdb"_s);
    QFile::copy(kFile, copy);
    const QDateTime written = QFileInfo(copy).lastModified();
    const setup::JetReader reader(copy, QStringLiteral(SUITE_PROGRAMS) + u"/suite-setup"_s);
    const auto change = [&](const QByteArray& content, const QDateTime& time) {
        WriteBytes(copy, content);
        QFile file(copy);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFile::FileModificationTime));
    };
    const auto failure = [&]() -> QString {
        try {
            reader.CheckUnchanged();
        } catch (const platform::RuntimeError& error) {
            return error.Description();
        }
        return {};
    };
    const QString changed = copy + u" は読み取り中に変更されました。何も取り込んでいません。"_s;
    EXPECT_EQ(failure(), QString());
    change(ReadBytes(kFile) + QByteArray(4096, '\0'), written);
    EXPECT_EQ(failure(), changed) << "larger";
    change(ReadBytes(kFile), written.addMSecs(1));
    EXPECT_EQ(failure(), changed) << "of the same size";
    change(ReadBytes(kFile), written);
    EXPECT_EQ(failure(), QString());
}

TEST_F(JetReaders, TheEnvironmentOfThisProgramStaysAsItIs) {
    qputenv("MDBOPTS", "debug_row");
    qputenv("MDBICONV", "CP932");
    const setup::JetReader reader(kFile, QStringLiteral(SUITE_PROGRAMS) + u"/suite-setup"_s);
    reader.ReadRows(u"M役職"_s, [this](const QStringList& values) { rows.append(values); });
    EXPECT_EQ(rows.value(0), (QStringList{u"10"_s, u"取締役"_s}));
    EXPECT_EQ(qgetenv("MDBICONV"), "CP932");
    EXPECT_FALSE(qEnvironmentVariableIsSet("MDB_JET3_CHARSET"));
    qunsetenv("MDBOPTS");
    qunsetenv("MDBICONV");
}

TEST(JetReaderLimits, TheLargestFileHasMoreThanAnHourAndASmallOneSeconds) {
    EXPECT_EQ(setup::JetReaderLimits(0).cpuSeconds, 10);
    EXPECT_EQ(setup::JetReaderLimits(0).waitMilliseconds, 60'000);
    EXPECT_EQ(setup::JetReaderLimits(qint64{1} << 31).cpuSeconds, 4106);
    EXPECT_EQ(setup::JetReaderLimits(qint64{1} << 31).waitMilliseconds, 8'252'000);
    EXPECT_EQ(setup::JetReaderLimits(0).memoryBytes, qint64{1} << 30);
}
