// How long statements wait for locks of other programs.

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <atomic>
#include <thread>

#include "database/Database.h"
#include "database/DatabaseFile.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

class LockWait : public testing::Test {
  protected:
    static void Open(Connection& connection, const QString& path, ConnectMode mode) {
        connection.Mode = mode;
        connection.ConnectionTimeout = 1;
        connection.CommandTimeout = 1;
        connection.Open(u"Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source="_s + path + u';');
    }
    template <typename Action>
    static qint64 TimeOfFailure(Action action) {
        QElapsedTimer timer;
        timer.start();
        EXPECT_NE(NumberOf(action), 0);
        return timer.elapsed();
    }

    QTemporaryDir folder;
    DatabaseFile file;
};

/// Holds a read lock on the bytes that SQLite locks for readers, as a reader in another process does.
class ReaderElsewhere {
  public:
    explicit ReaderElsewhere(const QString& path)
        : file_(::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC)) {
        struct flock shared = {};
        shared.l_type = F_RDLCK;
        shared.l_whence = SEEK_SET;
        shared.l_start = 0x40000002;
        shared.l_len = 510;
        EXPECT_EQ(::fcntl(file_, F_OFD_SETLK, &shared), 0);
    }
    ~ReaderElsewhere() { ::close(file_); }
    ReaderElsewhere(const ReaderElsewhere&) = delete;
    ReaderElsewhere& operator=(const ReaderElsewhere&) = delete;

  private:
    int file_;
};

}  // namespace

TEST_F(LockWait, GoesOnAsLongAsOtherProgramsWrite) {
    Connection connection;
    Open(connection, file.Path(), ConnectMode::ReadWrite);
    std::atomic<bool> locked = false;
    std::thread others([&] {
        const OtherProgram other(file.Path());
        for (int i = 0; i < 8; ++i) {
            while (other.Run("BEGIN IMMEDIATE") != SQLITE_OK) continue;
            EXPECT_EQ(other.Run("INSERT INTO 印 VALUES ('b')"), SQLITE_OK);
            locked = true;
            std::this_thread::sleep_for(std::chrono::milliseconds(700));
            EXPECT_EQ(other.Run("COMMIT"), SQLITE_OK);
        }
    });
    while (!locked) std::this_thread::yield();
    EXPECT_EQ(ErrorOf([&] { connection.Execute(u"INSERT INTO 印 VALUES ('a')"_s); }), u""_s);
    others.join();
    EXPECT_EQ(file.Value(u"SELECT COUNT(*) FROM 印"_s), u"9"_s);
}

// Compared with another wait of the same length, since both grow on a machine under load.
TEST_F(LockWait, ForTheRollbackOfAKilledWriterIsNoLongerThanTheTimeout) {
    const OtherProgram writer(file.Path());
    ASSERT_EQ(writer.Run("PRAGMA cache_size=1; CREATE TABLE t (a TEXT); WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL"
                         " SELECT i + 1 FROM n WHERE i < 999) INSERT INTO t SELECT 'a' || i FROM n; BEGIN;"
                         " UPDATE t SET a = 'half done and longer than before'"),
              SQLITE_OK);
    const QString copy = folder.filePath(u"gnrdb.accdb"_s);
    WriteBytes(copy, ReadBytes(file.Path()));
    WriteBytes(copy + u"-journal"_s, ReadBytes(file.Path() + u"-journal"_s));
    ASSERT_EQ(writer.Run("ROLLBACK; BEGIN EXCLUSIVE"), SQLITE_OK);
    Connection connection;
    const qint64 timeout = TimeOfFailure([&] { Open(connection, file.Path(), ConnectMode::Read); });
    const ReaderElsewhere reader(copy);
    EXPECT_LT(TimeOfFailure([&] { Open(connection, copy, ConnectMode::Read); }), timeout + 2'000);
}
