#include "setup/storage/JetFile.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <limits>

#include "platform/RuntimeError.h"
#include "support/FileBytes.h"
#include "support/WithoutFileRights.h"

using namespace Qt::StringLiterals;
using setup::JetDate;

TEST(JetDates, DaysCountFromTheLastDayButOneOf1899) {
    EXPECT_EQ(JetDate(0, false), u"18991230"_s);
    EXPECT_EQ(JetDate(1, false), u"18991231"_s);
    EXPECT_EQ(JetDate(36'526, false), u"20000101"_s);
    EXPECT_EQ(JetDate(-1, false), u"18991229"_s);
}

TEST(JetDates, TheFractionIsTheTimeOfDayAlsoBeforeTheFirstDay) {
    EXPECT_EQ(JetDate(36'526.75, false), u"20000101 180000"_s);
    EXPECT_EQ(JetDate(-1.25, false), u"18991229 060000"_s);
    EXPECT_EQ(JetDate(36'526.75, true), u"20000101"_s);
}

TEST(JetDates, ATimeIsRoundedToTheNextSecond) {
    EXPECT_EQ(JetDate(36'526 + 86'399.9 / 86'400, false), u"20000102"_s);
    EXPECT_EQ(JetDate(36'526 + 1.4 / 86'400, false), u"20000101 000001"_s);
}

TEST(JetDates, OutsideTheYears100To9999ThereIsNoDate) {
    EXPECT_EQ(JetDate(-657'434, false), u"01000101"_s);
    EXPECT_EQ(JetDate(2'958'465, false), u"99991231"_s);
    for (const double days : {-657'435.0, 2'958'466.0, 1e300, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(JetDate(days, false), std::nullopt) << days;
}

namespace {

QString UsageError(const QString& path) {
    try {
        setup::CheckJetFile(path);
    } catch (const platform::RuntimeError& error) {
        return error.Description();
    }
    return {};
}

/// A sparse file with the header of that version.
void WriteSparse(const QString& path, char version, qint64 size) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("\0\1\0\0Standard Jet DB\0", 20) + version);
    ASSERT_TRUE(file.resize(size));
}

}  // namespace

TEST(JetFileCheck, AFileIsWholePagesOfItsVersion) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"general.mdb"_s);
    WriteSparse(path, 0, 3 * 2048);
    EXPECT_EQ(UsageError(path), QString());
    WriteSparse(path, 1, 3 * 2048);
    EXPECT_EQ(UsageError(path), path + u" は途中で切れています。"_s);
    WriteSparse(path, 1, 3 * 4096);
    EXPECT_EQ(UsageError(path), QString());
}

TEST(JetFileCheck, AFileHasAtMostTwoGigabytes) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"general.accdb"_s);
    WriteSparse(path, 2, qint64{1} << 31);
    EXPECT_EQ(UsageError(path), QString());
    WriteSparse(path, 2, (qint64{1} << 31) + 4096);
    EXPECT_EQ(UsageError(path), path + u" は Jet/ACE 形式の上限の 2 GB を超えています。"_s);
}

TEST(JetFileCheck, AFileWithoutReadPermissionIsRefused) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"general.mdb"_s);
    WriteSparse(path, 1, 4096);
    QFile::setPermissions(path, QFile::WriteOwner);
    const WithoutFileRights rights;
    EXPECT_EQ(UsageError(path), path + u" を読む権限がありません。"_s);
}
