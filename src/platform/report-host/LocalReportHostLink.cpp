#include <QDeadlineTimer>
#include <QLocalSocket>
#include <algorithm>

#include "platform/EndRequest.h"
#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"
#include "platform/report-host/HostMessages.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

constexpr qint64 kBetweenPolls = 200;  // milliseconds
constexpr int kNoLimit = -1;           // a long report takes as long as it takes

class SocketReportHost : public ReportHost {
  public:
    explicit SocketReportHost(const QString& socketPath) {
        socket_.connectToServer(socketPath);
        if (socket_.state() != QLocalSocket::ConnectedState)
            throw RuntimeError(kHostNotFound, u"帳票ホストに接続できません。"_s);
    }

    void OpenReport(const QString& report, int view) override { Ask({HostVerb::OpenReport, report, view}, kNoLimit); }
    void Maximize() override { Ask({HostVerb::Maximize, {}, 0}, kNoLimit); }
    void Quit() override { Ask({HostVerb::Quit, {}, 0}, kNoLimit); }

    void Ask(const HostRequest& request, int patience) {
        socket_.write(LineOf(request));
        const std::optional<HostAnswer> answer = ParseAnswer(ReadLine(patience));
        if (!answer) throw RuntimeError(kHostGone, u"帳票ホストの応答が正しくありません。"_s);
        if (answer->number != 0) throw RuntimeError(answer->number, answer->description);
    }

  private:
    /// True when there is more to read; False after the timeout or at the end of the connection. No event is processed
    /// meanwhile, so requests to end the program are looked for.
    bool WaitForMore(int timeout) {
        const QDeadlineTimer end(timeout);
        do {
            const auto wait = end.isForever() ? kBetweenPolls : std::min<qint64>(kBetweenPolls, end.remainingTime());
            if (socket_.waitForReadyRead(static_cast<int>(wait))) return true;
            if (EndRequested()) {
                CarryOutEndRequest();
                return false;
            }
        } while (socket_.state() == QLocalSocket::ConnectedState && !end.hasExpired());
        return false;
    }

    QByteArray ReadLine(int patience) {
        while (!socket_.canReadLine()) {
            if (WaitForMore(patience)) continue;
            const bool silent = socket_.state() == QLocalSocket::ConnectedState;
            throw RuntimeError(kHostGone,
                               silent ? u"帳票ホストが応答しません。"_s : u"帳票ホストが途中で終了しました。"_s);
        }
        return socket_.readLine();
    }

    QLocalSocket socket_;
};

}  // namespace

std::unique_ptr<ReportHost> LocalReportHostLink::Bind(const QString& formsFile) {
    auto host = std::make_unique<SocketReportHost>(HostSocketPath(formsFile));
    host->Ask({HostVerb::Bind, {}, 0}, patience_);
    return host;
}

}  // namespace platform
