// Part of ReportHostLink.h: LocalReportHostLink.

#include <QDeadlineTimer>
#include <QLocalSocket>

#include "platform/EndRequest.h"
#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"
#include "platform/report-host/HostMessages.h"
#include "platform/report-host/HostSocket.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

constexpr int kNoLimit = -1;  // printing a long report may take minutes
constexpr qint64 kLongestAnswer = 1 << 16;
constexpr int kBetweenPolls = 100;  // milliseconds between two polls for a request to end the program

class SocketReportHost : public ReportHost {
  public:
    explicit SocketReportHost(const QString& socketPath) {
        socket_.connectToServer(socketPath);
        if (socket_.state() != QLocalSocket::ConnectedState)
            throw RuntimeError(kHostNotFound, u"帳票ホストに接続できません。"_s);
        if (!PeerIsSameUser(static_cast<int>(socket_.socketDescriptor())))
            throw RuntimeError(kHostNotFound, u"帳票ホストの接続先は別の利用者のプログラムです。"_s);
    }

    void OpenReport(const QString& report, ReportView view) override {
        Ask({HostVerb::OpenReport, report, view}, kNoLimit);
    }
    void Maximize() override { Ask({.verb = HostVerb::Maximize}, kNoLimit); }
    void Quit() override { Ask({.verb = HostVerb::Quit}, kNoLimit); }

    void Ask(const HostRequest& request, int timeout) {
        socket_.write(LineOf(request));
        const std::optional<HostAnswer> answer = ParseAnswer(ReadLine(QDeadlineTimer(timeout)));
        if (!answer) throw RuntimeError(kHostGone, u"帳票ホストの応答が正しくありません。"_s);
        if (answer->number != 0) throw RuntimeError(answer->number, answer->description);
    }

  private:
    QByteArray ReadLine(const QDeadlineTimer& end) {
        while (!socket_.canReadLine()) {
            if (socket_.bytesAvailable() > kLongestAnswer) return {};
            const qint64 left = end.isForever() ? kBetweenPolls : qMin<qint64>(kBetweenPolls, end.remainingTime());
            if (socket_.waitForReadyRead(static_cast<int>(left))) continue;
            if (socket_.state() != QLocalSocket::ConnectedState)
                throw RuntimeError(kHostGone, u"帳票ホストが途中で終了しました。"_s);
            if (end.hasExpired()) throw RuntimeError(kHostGone, u"帳票ホストが応答しません。"_s);
            // No events are processed here, so poll for a request to end the program.
            if (EndRequested()) CarryOutEndRequest();
        }
        return socket_.readLine();
    }

    QLocalSocket socket_;
};

}  // namespace

std::unique_ptr<ReportHost> LocalReportHostLink::Bind(const QString& templateFile) {
    auto host = std::make_unique<SocketReportHost>(HostSocketPath(templateFile));
    host->Ask({.verb = HostVerb::Bind}, timeout_);
    return host;
}

}  // namespace platform
