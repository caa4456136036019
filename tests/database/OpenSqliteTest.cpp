#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>

#include <sys/stat.h>

#include "database/Database.h"
#include "database/DatabaseFile.h"
#include "support/WithoutFileRights.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

class SqliteOpening : public testing::Test {
  protected:
    QString Write(const QString& name, const QByteArray& bytes) const {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }

    static QByteArray Read(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    static void Open(Connection& connection, const QString& path, ConnectMode mode = ConnectMode::Read) {
        connection.Mode = mode;
        connection.ConnectionTimeout = 1;
        connection.CommandTimeout = 1;
        connection.Open(u"Provider=Microsoft.Jet.OLEDB.4.0;User ID=;Password=;Data Source="_s + path + u';');
    }

    static QString UsageError(const QString& path) {
        Connection connection;
        const QString text = ErrorOf([&] { Open(connection, path); });
        EXPECT_FALSE(connection.IsOpen());
        Connection writer;
        EXPECT_EQ(ErrorOf([&] { Open(writer, path, ConnectMode::ReadWrite); }), text);
        return text;
    }

    // A database of several pages, copied while a transaction was half written.
    QString TornCopy() const {
        source.Run(
            u"CREATE TABLE t (a TEXT); WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 999)"
            u" INSERT INTO t SELECT '元' || i FROM n"_s);
        const OtherProgram writer(source.Path());
        EXPECT_EQ(writer.Run("PRAGMA cache_size=1; BEGIN; UPDATE t SET a = 'half done and longer than before'"),
                  SQLITE_OK);
        const QString copy = Write(u"gnrdb.accdb"_s, Read(source.Path()));
        Write(u"gnrdb.accdb-journal"_s, Read(source.Path() + u"-journal"_s));
        EXPECT_EQ(writer.Run("ROLLBACK"), SQLITE_OK);
        return copy;
    }

    // A database in WAL mode, copied while the program that had inserted the only row still had it open.
    QString CopyWithWal() const {
        const OtherProgram writer(source.Path());
        EXPECT_EQ(writer.Run("PRAGMA journal_mode=WAL; INSERT INTO 印 VALUES ('a')"), SQLITE_OK);
        const QString copy = Write(u"gnrdb.accdb"_s, Read(source.Path()));
        Write(u"gnrdb.accdb-wal"_s, Read(source.Path() + u"-wal"_s));
        return copy;
    }

    static QStringList FilesBeside(const QString& path) {
        return QFileInfo(path).dir().entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    QTemporaryDir folder;
    DatabaseFile source;
};

}  // namespace

TEST_F(SqliteOpening, AMissingFileIsNotCreated) {
    const QString path = folder.filePath(u"無い.accdb"_s);
    EXPECT_EQ(UsageError(path), u"データベース「"_s + path + u"」が見つかりません。"_s);
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST_F(SqliteOpening, AFolderIsNoDatabase) {
    EXPECT_EQ(UsageError(folder.path()),
              u"「"_s + folder.path() + u"」はフォルダーです。データベースのファイルを指定してください。"_s);
}

TEST_F(SqliteOpening, WhatIsNoPlainFileIsRefusedAtOnce) {
    const QString pipe = folder.filePath(u"管.accdb"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString link = folder.filePath(u"先.accdb"_s);
    ASSERT_TRUE(QFile::link(pipe, link));
    const QString socket = folder.filePath(u"口.accdb"_s);
    QLocalServer server;
    ASSERT_TRUE(server.listen(socket));
    for (const QString& path : {pipe, link, socket, u"/dev/zero"_s, u"/dev/null"_s})
        EXPECT_EQ(UsageError(path), u"「"_s + path + u"」は通常のファイルではありません。"_s);
}

TEST_F(SqliteOpening, AJournalThatIsNoPlainFileIsRefusedAtOnce) {
    for (const QString& suffix : {u"-journal"_s, u"-wal"_s, u"-shm"_s}) {
        const QString beside = source.Path() + suffix;
        ASSERT_EQ(::mkfifo(QFile::encodeName(beside).constData(), 0600), 0);
        EXPECT_EQ(UsageError(source.Path()), u"「"_s + beside + u"」は通常のファイルではありません。"_s);
        ASSERT_TRUE(QFile::remove(beside));
    }
}

TEST_F(SqliteOpening, AnEmptyFileIsTold) {
    const QString path = Write(u"空.accdb"_s, {});
    EXPECT_EQ(UsageError(path), u"データベース「"_s + path + u"」は空のファイルです (0 バイト)。"_s);
    EXPECT_EQ(QFileInfo(path).size(), 0);
}

TEST_F(SqliteOpening, OtherContentsAreToldAtOpen) {
    const QString text = Write(u"文.accdb"_s, QByteArray("これはデータベースではない。").repeated(100));
    EXPECT_EQ(UsageError(text), u"「"_s + text + u"」はデータベースのファイルではありません。"_s);
    const QString one = Write(u"一.accdb"_s, "x");
    EXPECT_EQ(UsageError(one), u"「"_s + one + u"」はデータベースのファイルではありません。"_s);
    const QString header = Write(u"頭.accdb"_s, QByteArray("SQLite format 3\0", 16) + QByteArray(8000, 'x'));
    EXPECT_EQ(UsageError(header), u"「"_s + header + u"」はデータベースのファイルではありません。"_s);
}

TEST_F(SqliteOpening, ACutOffDatabaseIsToldAtOpen) {
    source.Run(u"CREATE TABLE t (a TEXT); INSERT INTO t VALUES (zeroblob(20000))"_s);
    const QByteArray whole = Read(source.Path());
    for (const qsizetype size : {whole.size() - 4096, qsizetype(4096), qsizetype(5000)}) {
        const QString path = Write(u"切.accdb"_s, whole.left(size));
        EXPECT_EQ(UsageError(path), u"データベース「"_s + path + u"」は壊れているか、途中で切れています。"_s) << size;
    }
    const QString path = Write(u"切.accdb"_s, whole.left(300));
    EXPECT_EQ(UsageError(path), u"データベース「"_s + path + u"」は途中で切れています。"_s);
}

TEST_F(SqliteOpening, DesktopFilesAreRefusedWithTheWayToImportThem) {
    const QString files = QStringLiteral(SUITE_SOURCES) + u"/tests/setup/jet/"_s;
    for (const QString& name : {u"general.accdb"_s, u"general.mdb"_s, u"general97.mdb"_s})
        EXPECT_EQ(UsageError(files + name),
                  u"「"_s + files + name +
                      u"」は Jet/ACE 形式のデータベースで、この環境では直接開けません。suite-setup init で"
                      u"インストールを作り、suite-setup import インストール 元ファイル で取り込んでください。"_s);
}

TEST_F(SqliteOpening, TheHeaderAloneTellsADesktopFile) {
    for (const char* mark : {"Standard Jet DB", "Standard ACE DB"}) {
        const QString path = Write(u"実.mdb"_s, QByteArray("\0\1\0\0", 4) + mark + QByteArray(4096, '\0'));
        EXPECT_TRUE(UsageError(path).startsWith(u"「"_s + path + u"」は Jet/ACE 形式のデータベースで"_s)) << mark;
    }
}

TEST_F(SqliteOpening, ALockedFileIsToldAfterTheTimeOut) {
    const OtherProgram other(source.Path());
    ASSERT_EQ(other.Run("BEGIN EXCLUSIVE"), SQLITE_OK);
    EXPECT_EQ(UsageError(source.Path()), u"データベース「"_s + source.Path() + u"」は他のプログラムが使用中です。"_s);
    ASSERT_EQ(other.Run("COMMIT"), SQLITE_OK);
    Connection connection;
    EXPECT_EQ(ErrorOf([&] { Open(connection, source.Path()); }), u""_s);
}

TEST_F(SqliteOpening, AFileLockedLaterFailsTheStatementOnly) {
    Connection connection;
    Open(connection, source.Path());
    const OtherProgram other(source.Path());
    ASSERT_EQ(other.Run("BEGIN EXCLUSIVE"), SQLITE_OK);
    {
        const ReadScope scope(connection);  // fails silently
        EXPECT_EQ(ErrorOf([&] { Column(connection, u"SELECT 値 FROM 印"_s, u"値"); }), u"database is locked"_s);
    }
    ASSERT_EQ(other.Run("COMMIT"), SQLITE_OK);
    EXPECT_EQ(Column(connection, u"SELECT 値 FROM 印"_s, u"値"), QStringList());
}

TEST_F(SqliteOpening, AReaderHasTheHotJournalOfAKilledWriterRolledBack) {
    const QString path = TornCopy();
    Connection connection;
    Open(connection, path);
    EXPECT_EQ(Column(connection, u"SELECT a FROM t WHERE a LIKE '元%'"_s, u"a").size(), 999);
    EXPECT_FALSE(QFileInfo::exists(path + u"-journal"_s));
    EXPECT_EQ(NumberOf([&] { connection.Execute(u"DELETE FROM t"_s); }), kPermissionDenied);
}

TEST_F(SqliteOpening, AJournalThatTurnsHotUnderAnOpenReaderIsRolledBackToo) {
    const QString torn = TornCopy();
    const QByteArray journal = Read(torn + u"-journal"_s);
    const QByteArray database = Read(torn);
    Connection connection;
    Open(connection, torn);
    ASSERT_EQ(Column(connection, u"SELECT a FROM t"_s, u"a").size(), 999);
    Write(u"gnrdb.accdb"_s, database);
    Write(u"gnrdb.accdb-journal"_s, journal);
    EXPECT_EQ(Column(connection, u"SELECT a FROM t WHERE a LIKE '元%'"_s, u"a").size(), 999);
}

TEST_F(SqliteOpening, NoFileStaysInWalMode) {
    source.Run(u"PRAGMA journal_mode=WAL; INSERT INTO 印 VALUES ('a')"_s);
    Connection connection;
    Open(connection, source.Path(), ConnectMode::ReadWrite);
    connection.Execute(u"INSERT INTO 印 VALUES ('b')"_s);
    connection.Close();
    EXPECT_EQ(source.Value(u"PRAGMA journal_mode"_s), u"delete"_s);
    EXPECT_EQ(source.Value(u"SELECT COUNT(*) FROM 印"_s), u"2"_s);
}

TEST_F(SqliteOpening, AReaderOfAFileInWalModeLeavesTheFolderAndTheFileAsTheyAre) {
    source.Run(u"PRAGMA journal_mode=WAL; INSERT INTO 印 VALUES ('a')"_s);
    const QByteArray before = Read(source.Path());
    Connection connection;
    Open(connection, source.Path());
    EXPECT_EQ(Column(connection, u"SELECT 値 FROM 印"_s, u"値"), QStringList({u"a"_s}));
    EXPECT_EQ(FilesBeside(source.Path()), QStringList({u"gnrdb.accdb"_s}));
    EXPECT_EQ(NumberOf([&] { connection.Execute(u"DELETE FROM 印"_s); }), kPermissionDenied);
    EXPECT_EQ(Read(source.Path()), before);
}

TEST_F(SqliteOpening, AReaderOfAFileInWalModeSeesWhatOthersWriteLater) {
    source.Run(u"PRAGMA journal_mode=WAL; INSERT INTO 印 VALUES ('a')"_s);
    Connection reader;
    Open(reader, source.Path());
    EXPECT_EQ(Column(reader, u"SELECT 値 FROM 印"_s, u"値"), QStringList({u"a"_s}));
    Connection writer;
    Open(writer, source.Path(), ConnectMode::ReadWrite);
    writer.Execute(u"INSERT INTO 印 VALUES ('b')"_s);
    writer.Execute(u"ALTER TABLE 印 ADD COLUMN 二 TEXT"_s);
    EXPECT_EQ(Column(reader, u"SELECT 値 FROM 印"_s, u"値"), QStringList({u"a"_s, u"b"_s}));
    EXPECT_EQ(Column(reader, u"SELECT 二 FROM 印"_s, u"二"), QStringList({u"(Null)"_s, u"(Null)"_s}));
}

TEST_F(SqliteOpening, WhatAKilledWriterLeftInItsWalIsReadAndBroughtIntoTheFile) {
    const QString path = CopyWithWal();
    Connection connection;
    Open(connection, path);
    EXPECT_EQ(Column(connection, u"SELECT 値 FROM 印"_s, u"値"), QStringList({u"a"_s}));
    EXPECT_EQ(FilesBeside(path), QStringList({u"gnrdb.accdb"_s}));
}

TEST_F(SqliteOpening, WhatAKilledWriterLeftInItsWalIsRefusedToAUserWhoMayNotWrite) {
    const QString path = CopyWithWal();
    ASSERT_TRUE(QFile::setPermissions(path, QFileDevice::ReadOwner));
    const QStringList before = FilesBeside(path);
    const WithoutFileRights held;
    Connection connection;
    EXPECT_EQ(ErrorOf([&] { Open(connection, path); }),
              u"データベース「"_s + path +
                  u"」には、まだ本体に書き込まれていない内容 (-wal) があります。"
                  "書き込む権限のある利用者が一度開くと読めるようになります。"_s);
    EXPECT_EQ(FilesBeside(path), before);
}

TEST_F(SqliteOpening, AReaderBesideAProgramThatWorksInWalModeReadsWhatItWrote) {
    const OtherProgram other(source.Path());
    ASSERT_EQ(other.Run("PRAGMA journal_mode=WAL; INSERT INTO 印 VALUES ('a')"), SQLITE_OK);
    const QStringList before = FilesBeside(source.Path());
    Connection connection;
    Open(connection, source.Path());
    EXPECT_EQ(Column(connection, u"SELECT 値 FROM 印"_s, u"値"), QStringList({u"a"_s}));
    ASSERT_EQ(other.Run("INSERT INTO 印 VALUES ('b')"), SQLITE_OK);
    EXPECT_EQ(Column(connection, u"SELECT 値 FROM 印"_s, u"値"), QStringList({u"a"_s, u"b"_s}));
    EXPECT_EQ(FilesBeside(source.Path()), before);
}

TEST_F(SqliteOpening, AFileThatMayNotBeWrittenIsOpenedForReading) {
    source.Run(u"INSERT INTO 印 VALUES ('a')"_s);
    ASSERT_TRUE(QFile::setPermissions(source.Path(), QFileDevice::ReadOwner));
    const WithoutFileRights held;
    Connection connection;
    Open(connection, source.Path(), ConnectMode::ReadWrite);
    EXPECT_EQ(Column(connection, u"SELECT 値 FROM 印"_s, u"値"), QStringList({u"a"_s}));
    EXPECT_EQ(NumberOf([&] { connection.Execute(u"DELETE FROM 印"_s); }), kPermissionDenied);
}

TEST_F(SqliteOpening, EitherSeparatorIsTaken) {
    Connection connection;
    EXPECT_EQ(ErrorOf([&] { Open(connection, QString(source.Path()).replace(u'/', u'\\')); }), u""_s);
}

TEST_F(SqliteOpening, ANameThatLooksLikeAnAddressIsAFile) {
    const QString path = Write(u"file:x?mode=memory"_s, Read(source.Path()));
    Connection connection;
    Open(connection, path, ConnectMode::ReadWrite);
    connection.Execute(u"INSERT INTO 印 VALUES ('a')"_s);
    EXPECT_EQ(Column(connection, u"SELECT 値 FROM 印"_s, u"値"), QStringList({u"a"_s}));
}

TEST_F(SqliteOpening, NothingOfTheProgramStandsInTheSchema) {
    Connection connection;
    connection.Rules = {{u"値"_s}, {}};
    Open(connection, source.Path(), ConnectMode::ReadWrite);
    Column(connection, u"SELECT 値 FROM 印 WHERE 値 LIKE '%a%' ORDER BY 値"_s, u"値");
    EXPECT_EQ(source.Value(u"SELECT COUNT(*) FROM sqlite_schema WHERE sql LIKE '%COLLATE%'"_s), u"0"_s);
}
