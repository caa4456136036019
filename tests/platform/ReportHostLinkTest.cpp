#include <gtest/gtest.h>

#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <thread>

#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"
#include "platform/report-host/HostMessages.h"

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

/// Fake host in a thread: sends the given replies, one for each request, and disconnects.
class AnsweringHost {
  public:
    AnsweringHost(const QString& forms, QByteArrayList answers) {
        QLocalServer::removeServer(HostSocketPath(forms));
        std::atomic_bool listens = false;
        thread_ =
            std::thread([this, forms, answers = std::move(answers), &listens] { Serve(forms, answers, listens); });
        while (!listens) std::this_thread::yield();
    }
    /// The requests received; waits until the host has disconnected.
    QByteArrayList Asked() {
        thread_.join();
        return asked_;
    }
    ~AnsweringHost() {
        if (thread_.joinable()) thread_.join();
    }

  private:
    void Serve(const QString& forms, const QByteArrayList& answers, std::atomic_bool& listens) {
        QLocalServer server;
        server.listen(HostSocketPath(forms));
        listens = true;
        if (!server.waitForNewConnection(10000)) return;
        QLocalSocket* caller = server.nextPendingConnection();
        for (const QByteArray& answer : answers) {
            while (!caller->canReadLine() && caller->waitForReadyRead(10000)) continue;
            asked_.append(caller->readLine());
            caller->write(answer);
            caller->waitForBytesWritten(1000);
        }
        // Keep the connection if the client is to time out.
        if (answers.isEmpty()) caller->waitForDisconnected(10000);
    }

    std::thread thread_;
    QByteArrayList asked_;
};

const QByteArray kDone = "{\"number\":0,\"text\":\"\"}\n";

class ReportHostLinkTest : public ::testing::Test {
  protected:
    QString Forms() const { return folder.filePath(u"repfrmdb.accdb"_s); }
    template <typename Work>
    static RuntimeError Failure(Work work) {
        try {
            work();
        } catch (const RuntimeError& error) {
            return error;
        }
        return {0, u"nothing failed"_s};
    }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(ReportHostLinkTest, EachVerbIsOneRequestAndWaitsForItsAnswer) {
    AnsweringHost host(Forms(), {kDone, kDone, kDone, kDone});
    {
        const std::unique_ptr<ReportHost> bound = LocalReportHostLink().Bind(Forms());
        bound->OpenReport(u"要員名簿照会"_s, ReportView::Preview);
        bound->Maximize();
        bound->Quit();
    }
    const QByteArrayList asked = host.Asked();
    ASSERT_EQ(asked.size(), 4);
    EXPECT_EQ(ParseRequest(asked[0])->verb, HostVerb::Bind);
    EXPECT_EQ(ParseRequest(asked[1])->verb, HostVerb::OpenReport);
    EXPECT_EQ(ParseRequest(asked[1])->report, u"要員名簿照会"_s);
    EXPECT_EQ(static_cast<int>(ParseRequest(asked[1])->view), 2);
    EXPECT_EQ(ParseRequest(asked[2])->verb, HostVerb::Maximize);
    EXPECT_EQ(ParseRequest(asked[3])->verb, HostVerb::Quit);
}

TEST_F(ReportHostLinkTest, WithoutAHostTheBindFailsAtOnce) {
    const RuntimeError error = Failure([this] { LocalReportHostLink().Bind(Forms()); });
    EXPECT_EQ(error.Number(), kHostNotFound);
    EXPECT_EQ(error.Description(), u"帳票ホストに接続できません。"_s);
}

TEST_F(ReportHostLinkTest, HostThatNeverAnswersTheBindIsGivenUp) {
    AnsweringHost host(Forms(), {});
    const RuntimeError error = Failure([this] { LocalReportHostLink(20).Bind(Forms()); });
    EXPECT_EQ(error.Number(), kHostGone);
    EXPECT_EQ(error.Description(), u"帳票ホストが応答しません。"_s);
}

TEST_F(ReportHostLinkTest, RefusalComesWithTheHostsOwnWords) {
    AnsweringHost host(Forms(), {kDone, LineOf(HostAnswer{2501, u"用紙が\n\"ありません\"。𠮷"_s})});
    const std::unique_ptr<ReportHost> bound = LocalReportHostLink().Bind(Forms());
    const RuntimeError error = Failure([&] { bound->OpenReport(u"r"_s, ReportView::Print); });
    EXPECT_EQ(error.Number(), 2501);
    EXPECT_EQ(error.Description(), u"用紙が\n\"ありません\"。𠮷"_s);
}

TEST_F(ReportHostLinkTest, HostThatHangsUpIsTold) {
    AnsweringHost host(Forms(), {kDone});
    const std::unique_ptr<ReportHost> bound = LocalReportHostLink().Bind(Forms());
    EXPECT_EQ(Failure([&] { bound->OpenReport(u"r"_s, ReportView::Print); }).Description(),
              u"帳票ホストが途中で終了しました。"_s);
}

TEST_F(ReportHostLinkTest, AnswerThatIsNoneIsTold) {
    AnsweringHost host(Forms(), {"hello\n"});
    EXPECT_EQ(Failure([this] { LocalReportHostLink().Bind(Forms()); }).Description(),
              u"帳票ホストの応答が正しくありません。"_s);
}

TEST_F(ReportHostLinkTest, AnswerWithoutEndIsTold) {
    AnsweringHost host(Forms(), {QByteArray(200000, 'x')});
    EXPECT_EQ(Failure([this] { LocalReportHostLink().Bind(Forms()); }).Description(),
              u"帳票ホストの応答が正しくありません。"_s);
}
