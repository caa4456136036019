#include "platform/RegistryFixture.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <vector>

#include "platform/FileRights.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;
using namespace platform;

TEST_F(RegistryTest, KeysAndValuesAreFoundWithoutCaseAndKeepTheirFirstSpelling) {
    ASSERT_EQ(SetText(Made(kOffice), u"Path"_s, u"/suite/ａｂｃ/"_s), kRegistryDone);
    EXPECT_EQ(Text(UserRoot(), u"SOFTWARE\\suite\\OFFICE"_s, u"pATH"_s), u"/suite/ａｂｃ/"_s);
    ASSERT_EQ(SetText(Made(kOffice.toUpper()), u"PATH"_s, u"/other/"_s), kRegistryDone);
    EXPECT_EQ(ReadBytes(UserFile()).toStdString(),
              "[Software]\n[Software\\Suite]\n[Software\\Suite\\Office]\n\"Path\"=\"/other/\"\n");
}

TEST_F(RegistryTest, MachineAndUserAreTwoFiles) {
    ASSERT_EQ(SetText(Made(kOffice, MachineRoot()), u"Path"_s, u"m"_s), kRegistryDone);
    EXPECT_FALSE(QFile::exists(UserFile()));
    EXPECT_EQ(Text(UserRoot(), kOffice, u"Path"_s), u"status 2"_s);
    EXPECT_EQ(Text(MachineRoot(), kOffice, u"Path"_s), u"m"_s);
}

TEST_F(RegistryTest, FailedReadLeavesTheBlanksOfTheBuffer) {
    for (const QString& name : {u"Path"_s, QString()}) {
        QString buffer(256, u' ');
        int length = 256;
        EXPECT_EQ(registry.GetValue(MachineRoot(), kOffice, name, kRegistryTextType, buffer, length),
                  kRegistryNotFound);
        EXPECT_EQ(buffer, QString(256, u' '));
        Made(kOffice, MachineRoot());
    }
}

TEST_F(RegistryTest, TextOverwritesTheBeginningOfTheBufferWithItsNul) {
    ASSERT_EQ(SetText(Made(kOffice), u"Path"_s, u"abc"_s), kRegistryDone);
    QString buffer(8, u' ');
    int length = 8;
    ASSERT_EQ(registry.GetValue(UserRoot(), kOffice, u"Path"_s, kRegistryTextType, buffer, length), kRegistryDone);
    EXPECT_EQ(buffer, u"abc"_s + QChar(u'\0') + u"    "_s);
    EXPECT_EQ(length, 4);
}

TEST_F(RegistryTest, TextThatDoesNotFitTellsItsLength) {
    ASSERT_EQ(SetText(Made(kOffice), u"Path"_s, u"abcdefgh"_s), kRegistryDone);
    QString buffer(8, u' ');
    int length = 8;
    EXPECT_EQ(registry.GetValue(UserRoot(), kOffice, u"Path"_s, kRegistryTextType, buffer, length), kRegistryMoreData);
    EXPECT_EQ(buffer, QString(8, u' '));
    EXPECT_EQ(length, 9);
}

TEST_F(RegistryTest, OnlyTheBytesToldAreWritten) {
    const RegistryKey key = Made(kOffice);
    ASSERT_EQ(registry.SetText(key, u"Path"_s, u"名簿と台帳"_s, 4), kRegistryDone);
    EXPECT_EQ(Text(UserRoot(), kOffice, u"Path"_s), u"名簿"_s);
    ASSERT_EQ(registry.SetText(key, u"Path"_s, u"名簿"_s, 400), kRegistryDone);
    EXPECT_EQ(Text(UserRoot(), kOffice, u"Path"_s), u"名簿"_s);
}

TEST_F(RegistryTest, NumbersAndTextsAreToldApart) {
    const RegistryKey key = Made(kOffice);
    ASSERT_EQ(registry.SetNumber(key, u"Level"_s, 0xFFFFFFFF), kRegistryDone);
    ASSERT_EQ(SetText(key, u"Path"_s, u"1"_s), kRegistryDone);
    quint32 number = 7;
    EXPECT_EQ(Another().QueryNumber(key, u"level"_s, number), kRegistryDone);
    EXPECT_EQ(number, 0xFFFFFFFFU);
    EXPECT_EQ(registry.QueryNumber(key, u"Path"_s, number), kRegistryOtherType);
    EXPECT_EQ(Text(UserRoot(), kOffice, u"Level"_s), u"status 1630"_s);
    QString buffer(9, u' ');
    int length = 9;
    EXPECT_EQ(registry.GetValue(UserRoot(), kOffice, u"Path"_s, kRegistryNumberType, buffer, length),
              kRegistryOtherType);
}

TEST_F(RegistryTest, EveryCharacterOfAValueSurvives) {
    const QString odd = u"\"a\\b\"=\r\n[c]\t 𠮷鷗"_s;
    const RegistryKey key = Made(kOffice);
    ASSERT_EQ(SetText(key, odd, odd), kRegistryDone);
    ASSERT_EQ(SetText(key, QString(), u"own value"_s), kRegistryDone);
    EXPECT_EQ(Text(UserRoot(), kOffice, odd), odd);
    EXPECT_EQ(Text(UserRoot(), kOffice, QString()), u"own value"_s);
}

TEST_F(RegistryTest, SubkeysAreEnumeratedInTheOrderOfTheirNames) {
    for (const QString& name : {u"Location2"_s, u"Location10\\Deep"_s, u"Location"_s, u"location1"_s})
        Made(kOffice + u'\\' + name);
    Made(kOffice + u"s\\Neighbour"_s);
    EXPECT_EQ(Subkeys(Made(kOffice)), QStringList({u"Location"_s, u"location1"_s, u"Location10"_s, u"Location2"_s}));
    EXPECT_EQ(Subkeys(UserRoot()), QStringList{u"Software"_s});
    EXPECT_EQ(Subkeys(MachineRoot()), QStringList());
}

TEST_F(RegistryTest, OpenFindsOnlyWhatIsThere) {
    RegistryKey key;
    EXPECT_EQ(registry.OpenKey(UserRoot(), kOffice, kRegistryAll, key), kRegistryNotFound);
    EXPECT_FALSE(key.open);
    Made(kOffice);
    EXPECT_EQ(registry.OpenKey(UserRoot(), u"software\\SUITE"_s, kRegistryRead, key), kRegistryDone);
    RegistryKey below;
    EXPECT_EQ(registry.OpenKey(key, u"office"_s, kRegistryRead, below), kRegistryDone);
}

TEST_F(RegistryTest, ClosedKeyAnswersNothing) {
    RegistryKey key = Made(kOffice);
    EXPECT_EQ(registry.CloseKey(key), kRegistryDone);
    EXPECT_EQ(registry.CloseKey(key), kRegistryClosed);
    EXPECT_EQ(SetText(key, u"Path"_s, u"x"_s), kRegistryClosed);
    RegistryKey root = UserRoot();
    EXPECT_EQ(registry.CloseKey(root), kRegistryDone);
    EXPECT_EQ(registry.CloseKey(root), kRegistryDone);
}

TEST_F(RegistryTest, KeyOpenedForReadingIsNotWritten) {
    Made(kOffice);
    RegistryKey key;
    ASSERT_EQ(registry.OpenKey(UserRoot(), kOffice, kRegistryRead, key), kRegistryDone);
    EXPECT_EQ(SetText(key, u"Path"_s, u"x"_s), kRegistryDenied);
    RegistryKey below;
    EXPECT_EQ(registry.CreateKey(key, u"Deep"_s, kRegistryAll, below), kRegistryDenied);
    EXPECT_EQ(Text(UserRoot(), kOffice, u"Path"_s), u"status 2"_s);
}

TEST_F(RegistryTest, PlaceThatCantBeMadeIsDenied) {
    FileRegistry nowhere(u"/proc/none/machine"_s, u"/proc/none/user"_s);
    RegistryKey key;
    EXPECT_EQ(nowhere.CreateKey(MachineRoot(), kOffice, kRegistryAll, key), kRegistryDenied);
    EXPECT_FALSE(key.open);
}

TEST_F(RegistryTest, TwoProgramsThatWriteAtOnceLoseNothing) {
    constexpr int kProcesses = 4, kValues = 25;
    Made(kOffice);
    std::vector<pid_t> writers;
    for (int process = 0; process < kProcesses; ++process) {
        writers.push_back(fork());
        if (writers.back() == 0) {
            FileRegistry own = Another();
            RegistryKey key;
            bool good = own.OpenKey(UserRoot(), kOffice, kRegistryAll, key) == kRegistryDone;
            for (int value = 0; value < kValues; ++value)
                good = good && own.SetNumber(key, u"%1-%2"_s.arg(process).arg(value), 1) == kRegistryDone;
            _exit(good ? 0 : 1);
        }
    }
    for (const pid_t writer : writers) {
        int status = -1;
        waitpid(writer, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(ReadBytes(UserFile()).count("=1\n"), kProcesses * kValues);
}

TEST_F(RegistryTest, EveryFolderMadeForTheMachinesPartIsPassableByAllUsers) {
    registry = {folder.filePath(u"etc/suite/machine"_s), UserFile()};
    const mode_t kept = ::umask(077);
    Made(kOffice, MachineRoot());
    ::umask(kept);
    EXPECT_EQ(RightsOf(folder.filePath(u"etc"_s))->mode, 0755U);
    EXPECT_EQ(RightsOf(folder.filePath(u"etc/suite"_s))->mode, 0755U);
}

TEST_F(RegistryTest, MachinesPartIsReadableByAllUsersWhateverTheUmask) {
    const QString file = folder.filePath(u"etc/machine"_s);
    FileRegistry machine(file, UserFile());
    const auto mode = [](const QString& path) { return RightsOf(path)->mode & 0777U; };
    const mode_t kept = ::umask(077);
    RegistryKey key;
    EXPECT_EQ(machine.CreateKey(MachineRoot(), kOffice, kRegistryAll, key), kRegistryDone);
    ::umask(kept);
    EXPECT_EQ(mode(folder.filePath(u"etc"_s)), 0755U);
    EXPECT_EQ(mode(file), 0644U);
}

TEST(RegistryPlaces, AreNamedByTheirEnvironmentVariables) {
    const QByteArray machine = qgetenv("MEIBO_MACHINE_REGISTRY"), user = qgetenv("MEIBO_USER_REGISTRY");
    EXPECT_EQ(MachineRegistryFile(), QString::fromUtf8(machine));
    EXPECT_EQ(UserRegistryFile(), QString::fromUtf8(user));
    qunsetenv("MEIBO_MACHINE_REGISTRY");
    qunsetenv("MEIBO_USER_REGISTRY");
    EXPECT_EQ(MachineRegistryFile(), u"/etc/youin-meibo/registry"_s);
    EXPECT_TRUE(UserRegistryFile().endsWith(u"/youin-meibo/registry"_s));
    qputenv("MEIBO_MACHINE_REGISTRY", machine);
    qputenv("MEIBO_USER_REGISTRY", user);
}
