// Servers of unknown type, whose drivers get the statements unchanged.

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QHostAddress>
#include <QTcpServer>
#include <QTemporaryDir>
#include <thread>

#include "database/Database.h"
#include "database/DatabaseFile.h"
#include "database/DatabaseSession.h"
#include "database/OwnDrivers.h"
#include "platform/EndRequest.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

const QString kByName = u"Provider=MSDASQL;User ID=u;Password=p;Data Source=plain;"_s;
const QString kByServer = u"Provider=Plain Driver;User ID=u;Password=p;Data Source=h;Initial Catalog=d;"_s;

class PlainEngine : public testing::TestWithParam<QString> {
  protected:
    PlainEngine() {
        qputenv("MEIBO_TEST_DRIVER_LOG", Log().toUtf8());
        qputenv("MEIBO_TEST_DRIVER_ENGINE", GetParam().toUtf8());
        WriteBytes(Log(), "");
        connection.ConnectionTimeout = 60;
        connection.CommandTimeout = 30000;
        connection.CursorLocation = CursorLocation::Client;
        connection.Rules = {{u"氏名"_s}, {u"ログインID"_s}};
    }
    ~PlainEngine() override {
        qunsetenv("MEIBO_TEST_DRIVER_LOG");
        qunsetenv("MEIBO_TEST_DRIVER_ENGINE");
    }

    void Open(const QString& text, ConnectMode mode = ConnectMode::Read) {
        connection.Mode = mode;
        connection.Open(text);
    }
    QString Log() const { return folder.filePath(u"log"_s); }
    /// Arguments of the calls of this kind that the driver logged.
    QStringList Logged(const QString& call) const {
        QStringList lines;
        for (const QString& line : QString::fromUtf8(ReadBytes(Log())).split(u'\n'))
            if (line.startsWith(call + u' ')) lines.append(line.sliced(call.size() + 1));
        return lines;
    }

    QTemporaryDir folder;
    OwnDrivers lists;
    Connection connection;
};

}  // namespace

TEST_P(PlainEngine, EngineNameLongerThanItsBufferIsCut) {
    qputenv("MEIBO_TEST_DRIVER_ENGINE", QByteArray(600, 'x'));
    Open(kByName);
    EXPECT_EQ(connection.Session().EngineName(), QString(255, u'x'));
}

TEST_P(PlainEngine, GetsEveryStatementCharacterByCharacter) {
    const QStringList statements = {
        u"SELECT TOP 1000 M担当者.コード,M担当者.氏名,M事業所.名称 AS 事業所名,M部門.名称 AS 部門名,"
        u"Mセクション.名称 AS セクション名 FROM Mセクション,M部門,M事業所,M担当者"
        u" WHERE M事業所.コード(+) = M担当者.事業所コード AND M部門.コード(+) = M担当者.部門コード"
        u" AND Mセクション.コード(+) = M担当者.セクションコード AND (M担当者.コード >= '00001')"
        u" AND M担当者.氏名 LIKE '%it''s \\ ヤマダ𠮷%' ORDER BY M担当者.氏名"_s,
        u"SELECT TOP 1 [T閲覧].[閲覧日付] FROM [T閲覧] ORDER BY [T閲覧].[閲覧日付] DESC"_s,
        u"SELECT * FROM M担当者 WHERE ログインID = 'Ab' AND 氏名 LIKE '[あ-ん]%'"_s};
    for (const QString& text : {kByName, kByServer}) {
        WriteBytes(Log(), "");
        Open(text);
        for (const QString& sql : statements) {
            Recordset rows;
            rows.Open(sql, connection);
        }
        EXPECT_EQ(Logged(u"run"_s), statements);
    }
}

TEST_P(PlainEngine, ATextOfMoreThan16MebibytesIsAnError) {
    Open(kByName);
    Recordset rows;
    qputenv("MEIBO_TEST_DRIVER_CELL", "16777217");
    EXPECT_EQ(ErrorOf([&] { rows.Open(u"SELECT 1"_s, connection); }), u"値が長すぎます (16 MiB まで)。"_s);
    qputenv("MEIBO_TEST_DRIVER_CELL", "16777216");
    EXPECT_EQ(ErrorOf([&] { rows.Open(u"SELECT 1"_s, connection); }), u""_s);
    qunsetenv("MEIBO_TEST_DRIVER_CELL");
}

TEST_P(PlainEngine, ATextWithoutAnEndIsAnErrorAndNotReadOn) {
    Open(kByName);
    Recordset rows;
    qputenv("MEIBO_TEST_DRIVER_CELL", "endless");
    EXPECT_EQ(ErrorOf([&] { rows.Open(u"SELECT 1"_s, connection); }), u"値が長すぎます (16 MiB まで)。"_s);
    EXPECT_EQ(Logged(u"endless"_s), QStringList());
    qunsetenv("MEIBO_TEST_DRIVER_CELL");
}

TEST_P(PlainEngine, GetsTheTimeOutsOfConnectionAndStatements) {
    Open(kByName);
    Recordset rows;
    rows.Open(u"SELECT 1"_s, connection);
    EXPECT_EQ(Logged(u"login"_s), QStringList{u"60"_s});
    EXPECT_EQ(Logged(u"timeout"_s), QStringList{u"30000"_s});
    EXPECT_EQ(Logged(u"connect"_s), QStringList{u"DSN=plain;UID=u;PWD=p;"_s});
}

TEST_P(PlainEngine, GivesTextsOfAnyLengthWholeAndTellsNullsFromEmptyOnes) {
    Open(kByName);
    Recordset rows;
    rows.Open(u"SELECT 1"_s, connection);
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.FieldType(0), u"VARCHAR2(4000)"_s);
    EXPECT_EQ(rows[u"one"].Text(), u"長"_s.repeated(1022) + u"𠮷"_s + u"い"_s.repeated(2000));
    EXPECT_TRUE(rows[u"two"].IsNull());
    rows.MoveNext();
    EXPECT_EQ(rows[u"one"].Text(), u""_s);
    EXPECT_EQ(rows[u"two"].Text(), u"短"_s);
}

TEST_P(PlainEngine, IsSentNothingThatWritesOverAConnectionForReading) {
    Open(kByName);
    Recordset rows;
    EXPECT_EQ(NumberOf([&] { connection.Execute(u"DELETE FROM M部門"_s); }), kPermissionDenied);
    EXPECT_EQ(NumberOf([&] { rows.Open(u"DELETE FROM M部門"_s, connection); }), kPermissionDenied);
    EXPECT_EQ(Logged(u"run"_s), QStringList());
}

TEST_P(PlainEngine, KeepsAndTakesBackByTheDriversOwnTransactions) {
    Open(kByName, ConnectMode::ReadWrite);
    {
        Transaction kept(connection);
        connection.Execute(u"DELETE FROM M部門"_s);
        kept.Commit();
    }
    { const Transaction takenBack(connection); }
    EXPECT_TRUE(
        ReadBytes(Log()).contains("autocommit 0\ntimeout 30000\nrun DELETE FROM M部門\ncommit\nautocommit 1\n"
                                  "autocommit 0\nrollback\nautocommit 1\n"))
        << ReadBytes(Log()).toStdString();
}

TEST_P(PlainEngine, FailedCommitIsRolledBackAndTheConnectionGoesOn) {
    Open(kByName, ConnectMode::ReadWrite);
    qputenv("MEIBO_TEST_DRIVER_FAILS", "commit");
    EXPECT_NE(NumberOf([&] {
                  Transaction whole(connection);
                  whole.Commit();
              }),
              0);
    qunsetenv("MEIBO_TEST_DRIVER_FAILS");
    connection.Execute(u"DELETE FROM M部門"_s);
    EXPECT_TRUE(ReadBytes(Log()).endsWith(
        "autocommit 0\ncommit\nrollback\nautocommit 1\ntimeout 30000\nrun DELETE FROM M部門\n"))
        << ReadBytes(Log()).toStdString();
}

// What is written later would belong to the open transaction, and be lost.
TEST_P(PlainEngine, ConnectionWhoseTransactionCannotBeEndedTakesNoMoreStatements) {
    for (const char* failing : {"rollback", "autocommit 1"}) {
        Open(kByName, ConnectMode::ReadWrite);
        qputenv("MEIBO_TEST_DRIVER_FAILS", failing);
        { const Transaction whole(connection); }
        qunsetenv("MEIBO_TEST_DRIVER_FAILS");
        const QByteArray log = ReadBytes(Log());
        const QString refusal = u"トランザクションを終えられなかったため、この接続は使えません。"_s;
        Recordset rows;
        EXPECT_EQ(ErrorOf([&] { connection.Execute(u"DELETE FROM M部門"_s); }), refusal) << failing;
        EXPECT_EQ(ErrorOf([&] { rows.Open(u"SELECT 1"_s, connection); }), refusal) << failing;
        EXPECT_EQ(ErrorOf([&] { const Transaction other(connection); }), refusal) << failing;
        EXPECT_EQ(ReadBytes(Log()), log) << failing;
    }
}

TEST_P(PlainEngine, ServerThatDoesNotGiveItsNameIsLeftAfterTheTimeout) {
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    qputenv("MEIBO_TEST_DRIVER_PORT", QByteArray::number(silent.serverPort()));
    connection.CommandTimeout = 1;
    EXPECT_EQ(ErrorOf([&] { Open(kByName); }), u"サーバーが 6 秒待っても応答しないため、接続を切りました。"_s);
    qunsetenv("MEIBO_TEST_DRIVER_PORT");
}

TEST_P(PlainEngine, StatementWhoseCancelDoesNotReturnIsNotFreedAndItsErrorNamesTheEndOfTheProgram) {
    Open(kByName);
    std::thread system([this] {
        while (!ReadBytes(Log()).contains("run SELECT * FROM M長")) std::this_thread::yield();
        platform::RequestEnd();
    });
    Recordset rows;
    EXPECT_EQ(ErrorOf([&] { rows.Open(u"SELECT * FROM M長"_s, connection); }),
              u"プログラムが終了するため、サーバーとの接続を切りました。"_s);
    system.join();
    connection.Close();
    QElapsedTimer timer;
    for (timer.start(); !ReadBytes(Log()).contains("cancelled") && timer.elapsed() < 60'000;) continue;
    EXPECT_TRUE(ReadBytes(Log()).endsWith("run SELECT * FROM M長\ncancelled\n")) << ReadBytes(Log()).toStdString();
}

TEST_P(PlainEngine, FailsWithTheEnginesWordsAndAnswersOn) {
    Open(kByName);
    Recordset rows;
    EXPECT_EQ(ErrorOf([&] { rows.Open(u"SELECT * FROM M無"_s, connection); }),
              u"ORA-00942: table or view does not exist"_s);
    EXPECT_EQ(NumberOf([&] { rows.Open(u"SELECT * FROM M無"_s, connection); }), kStatementFailure);
    rows.Open(u"SELECT 1"_s, connection);
    EXPECT_FALSE(rows.AtEOF());
}

INSTANTIATE_TEST_SUITE_P(Of, PlainEngine, testing::Values(u"Oracle"_s, u"Microsoft SQL Server"_s),
                         [](const auto& engine) { return "No" + std::to_string(engine.index); });
