#include "platform/SealedPins.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "support/FileBytes.h"

using namespace Qt::StringLiterals;
using platform::IsSealedPin;
using platform::OpenPin;
using platform::PinKey;
using platform::SealedPins;
using platform::SealPin;

namespace {

class SealedPinsTest : public testing::Test {
  protected:
    SealedPinsTest() : keyFile(folder.filePath(platform::PinKeyFileName())) {}

    /// A new instance, as at program start.
    SealedPins Run() {
        told.clear();
        return SealedPins(keyFile, [this](const QString& text) { told << text; });
    }

    QTemporaryDir folder;
    QString keyFile;
    PinKey key;
    QStringList told;
};

}  // namespace

TEST_F(SealedPinsTest, WhatIsSealedOpensUnderItsKeyAlone) {
    const PinKey other;
    for (const QString& pin : {u"A"_s, u"AB12"_s, u"暗証番号"_s, QString(16, u'X'), QString(100, u'9'), u"S1:AB"_s}) {
        const QString sealed = SealPin(pin, key);
        EXPECT_EQ(OpenPin(sealed, key), pin);
        EXPECT_EQ(OpenPin(sealed, other), std::nullopt);
        EXPECT_FALSE(pin.size() > 3 && sealed.contains(pin));
    }
}

TEST_F(SealedPinsTest, SealedTextsBearTheMarkAndTellNeitherEqualPinsNorLengths) {
    const QString first = SealPin(u"AB12"_s, key), again = SealPin(u"AB12"_s, key);
    EXPECT_TRUE(first.startsWith(u"S1:"_s));
    EXPECT_NE(first, again);
    EXPECT_EQ(first.size(), SealPin(u"ABCDEFGH12"_s, key).size());
}

TEST_F(SealedPinsTest, OnlyAMarkWithEnoughBehindItCountsAsSealed) {
    EXPECT_TRUE(IsSealedPin(SealPin(u"AB12"_s, key)));
    for (const QString& text : {u""_s, u"AB12"_s, u"S1:"_s, u"S1:AB12"_s, SealPin(u"AB12"_s, key).mid(3),
                                SealPin(u"AB12"_s, key) + u'*', u"S2"_s + SealPin(u"AB12"_s, key).mid(2)})
        EXPECT_FALSE(IsSealedPin(text)) << text.toStdString();
}

TEST_F(SealedPinsTest, AChangedTextDoesNotOpen) {
    const QString sealed = SealPin(u"AB12"_s, key);
    // The last character before "=" contains unused bits, so changing it may have no effect; skip it.
    for (qsizetype place = 3; place < sealed.size() - 2; ++place) {
        QString changed = sealed;
        changed[place] = changed[place] == u'A' ? u'B' : u'A';
        EXPECT_EQ(OpenPin(changed, key), std::nullopt) << place;
    }
}

TEST_F(SealedPinsTest, KeyFileIsReadByOwnerAndGroupAndNeverReplaced) {
    ASSERT_TRUE(key.Write(keyFile));
    EXPECT_EQ(QFile(keyFile).size(), 32);
    const auto rights = QFile::permissions(keyFile);
    const auto users = QFile::ReadUser | QFile::WriteUser;
    EXPECT_EQ(rights & ~users, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    EXPECT_FALSE(PinKey().Write(keyFile));
    EXPECT_EQ(OpenPin(SealPin(u"AB12"_s, key), *PinKey::Read(keyFile)), u"AB12"_s);
}

TEST_F(SealedPinsTest, ProcessKilledInTheMiddleOfAKeyLeavesNoKeyFile) {
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit half{16, 16};
        ::setrlimit(RLIMIT_FSIZE, &half);
        ::signal(SIGXFSZ, SIG_DFL);
        static_cast<void>(key.Write(keyFile));
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_FALSE(QFile::exists(keyFile));
    EXPECT_TRUE(key.Write(keyFile));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{platform::PinKeyFileName()});
}

TEST_F(SealedPinsTest, KeyFileOfAnotherLengthIsNone) {
    for (const int bytes : {0, 31, 33, 5000}) {
        WriteBytes(keyFile, QByteArray(bytes, 'k'));
        EXPECT_FALSE(PinKey::Read(keyFile)) << bytes;
    }
    EXPECT_FALSE(PinKey::Read(folder.filePath(u"none"_s)));
    EXPECT_FALSE(PinKey::Read(folder.path()));
    const QString pipe = folder.filePath(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(PinKey::Read(pipe));
    EXPECT_FALSE(key.Write(folder.filePath(u"none/pin.key"_s)));
}

TEST_F(SealedPinsTest, WithTheKeyFileSealedPinsAreReadWithoutAWord) {
    ASSERT_TRUE(key.Write(keyFile));
    SealedPins pins = Run();
    EXPECT_EQ(pins.ClearText(SealPin(u"AB12"_s, key)), u"AB12"_s);
    EXPECT_EQ(pins.ClearText(QString()), QString());
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(SealedPinsTest, ASiteThatWasNeverMovedReadsItsPinsAsTheyAre) {
    SealedPins pins = Run();
    EXPECT_EQ(pins.ClearText(u"AB12"_s), u"AB12"_s);
    EXPECT_EQ(pins.ClearText(u"S1:AB12"_s), u"S1:AB12"_s);
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(SealedPinsTest, OnASealedSiteAPinInTheClearOpensNothingAndIsToldOnce) {
    ASSERT_TRUE(key.Write(keyFile));
    SealedPins pins = Run();
    EXPECT_EQ(pins.ClearText(u"AB12"_s), QString());
    EXPECT_EQ(pins.ClearText(u"CD34"_s), QString());
    EXPECT_EQ(told, QStringList{u"暗証番号を開けません。封じられていない暗証番号があります。"_s});
}

TEST_F(SealedPinsTest, WithoutItsKeyFileASealedPinIsEmptyAndToldOnce) {
    SealedPins pins = Run();
    EXPECT_EQ(pins.ClearText(SealPin(u"AB12"_s, key)), QString());
    EXPECT_EQ(pins.ClearText(SealPin(u"CD34"_s, key)), QString());
    EXPECT_EQ(told, QStringList{u"暗証番号を開けません。鍵ファイル %1 がありません。"_s.arg(keyFile)});
}

TEST_F(SealedPinsTest, AnEmptyKeyFileOpensNothingNeitherSealedNorClear) {
    WriteBytes(keyFile, {});
    SealedPins pins = Run();
    EXPECT_EQ(pins.ClearText(SealPin(u"AB12"_s, key)), QString());
    EXPECT_EQ(pins.ClearText(u"AB12"_s), QString());
    EXPECT_EQ(told, QStringList{u"暗証番号を開けません。鍵ファイル %1 を読めません。"_s.arg(keyFile)});
}

TEST_F(SealedPinsTest, TheKeyFileOfAnotherInstallationOpensNothing) {
    ASSERT_TRUE(PinKey().Write(keyFile));
    SealedPins pins = Run();
    EXPECT_EQ(pins.ClearText(SealPin(u"AB12"_s, key)), QString());
    EXPECT_EQ(told,
              QStringList{u"暗証番号を開けません。鍵ファイル %1 の鍵で封じられたものではありません。"_s.arg(keyFile)});
}

TEST_F(SealedPinsTest, CheckReportsWhatClearTextWouldReport) {
    const QString sealed = SealPin(u"AB12"_s, key);
    SealedPins withoutKey = Run();
    withoutKey.Check(QString());
    withoutKey.Check(u"AB12"_s);
    EXPECT_EQ(told, QStringList());
    withoutKey.Check(sealed);
    withoutKey.Check(sealed);
    EXPECT_EQ(told, QStringList{u"暗証番号を開けません。鍵ファイル %1 がありません。"_s.arg(keyFile)});
    ASSERT_TRUE(PinKey().Write(keyFile));
    told.clear();
    SealedPins withAnother = Run();
    withAnother.Check(sealed);
    EXPECT_EQ(told,
              QStringList{u"暗証番号を開けません。鍵ファイル %1 の鍵で封じられたものではありません。"_s.arg(keyFile)});
}

TEST_F(SealedPinsTest, CheckDecryptsTheFirstPinOnlyAndKnowsTheFormOfAll) {
    ASSERT_TRUE(key.Write(keyFile));
    SealedPins pins = Run();
    pins.Check(SealPin(u"AB12"_s, key));
    const QString ofAnotherKey = SealPin(u"AB12"_s, PinKey());
    pins.Check(ofAnotherKey);
    EXPECT_EQ(told, QStringList());
    pins.Check(u"CD34"_s);
    EXPECT_EQ(told, QStringList{u"暗証番号を開けません。封じられていない暗証番号があります。"_s});
    told.clear();
    SealedPins next = Run();
    next.Check(SealPin(u"AB12"_s, key));
    EXPECT_EQ(next.ClearText(ofAnotherKey), QString());
    EXPECT_EQ(told.size(), 1);
}

TEST_F(SealedPinsTest, TheKeyIsLookedForOnceARun) {
    SealedPins pins = Run();
    EXPECT_EQ(pins.ClearText(u"AB12"_s), u"AB12"_s);
    ASSERT_TRUE(key.Write(keyFile));
    EXPECT_EQ(pins.ClearText(SealPin(u"AB12"_s, key)), QString());
    EXPECT_EQ(told.size(), 1);
}

TEST(SecretText, IsOverwrittenWhereItLies) {
    QString secret = QString::number(123456);
    const QChar* const place = secret.constData();
    platform::WipeText(secret);
    EXPECT_TRUE(secret.isEmpty());
    ASSERT_EQ(secret.constData(), place) << "the same memory, still its own";
    for (int i = 0; i < 6; ++i) EXPECT_EQ(place[i].unicode(), 0) << i;
}

TEST(SecretText, OfSomebodyElseIsOnlyLetGo) {
    QString secret = QString::number(123456);
    const QString copy = secret;
    platform::WipeText(secret);
    EXPECT_TRUE(secret.isEmpty());
    EXPECT_EQ(copy, u"123456"_s);
}
