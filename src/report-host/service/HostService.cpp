#include "report-host/service/HostService.h"

#include <QLocalSocket>
#include <QSocketNotifier>
#include <exception>
#include <utility>

#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/preview/PreviewWindow.h"
#include "report-host/service/HostListener.h"
#include "report-host/service/ReportOutput.h"

using namespace Qt::StringLiterals;
using platform::HostAnswer;
using platform::HostRequest;
using platform::HostVerb;

namespace {

constexpr qint64 kLongestRequest = 1 << 16;  // bytes
constexpr long kNotUnderstood = 5;

}  // namespace

HostService::HostService(HostListener& listener, QString templateFile, Maker make)
    : listener_(listener),
      templateFile_(std::move(templateFile)),
      make_(std::move(make)),
      acceptNotifier_(new QSocketNotifier(listener.Socket(), QSocketNotifier::Read, this)) {
    connect(acceptNotifier_, &QSocketNotifier::activated, this, [this] { AcceptClients(); });
    timeout_.setSingleShot(true);
    connect(&timeout_, &QTimer::timeout, this, [this] { QuitWhenIdle(); });
    timeout_.start(kIdleTimeout);
}

HostService::~HostService() {
    Finished = nullptr;
    // Destroying the windows removes the temporary files of their reports.
    for (PreviewWindow* window : std::exchange(windows_, {})) delete window;
}

void HostService::AcceptClients() {
    for (int descriptor = listener_.Accept(); descriptor >= 0; descriptor = listener_.Accept()) {
        auto* client = new QLocalSocket(this);
        ++clients_;
        connect(client, &QLocalSocket::readyRead, this, [this, client] { ReadRequests(*client); });
        connect(client, &QLocalSocket::disconnected, this, [this, client] {
            client->deleteLater();
            --clients_;
            QuitWhenIdle();
        });
        client->setSocketDescriptor(descriptor);
    }
}

void HostService::ReadRequests(QLocalSocket& client) {
    while (client.canReadLine()) {
        const std::optional<HostRequest> request = platform::ParseRequest(client.readLine(kLongestRequest));
        if (request)
            Respond(client, *request);
        else
            client.write(LineOf(
                HostAnswer{.number = kNotUnderstood, .description = u"帳票ホストへの要求が正しくありません。"_s}));
    }
    if (client.bytesAvailable() > kLongestRequest) client.abort();
}

void HostService::Respond(QLocalSocket& client, const HostRequest& request) {
    if (request.verb == HostVerb::Release) return Release();
    HostAnswer answer;
    try {
        Dispatch(request);
    } catch (const platform::RuntimeError& error) {
        answer = {.number = error.Number(), .description = platform::TextForPeople(error)};
    } catch (const std::exception& error) {
        answer = {.number = kReportFailed,
                  .description = u"帳票を作成できません。（%1）"_s.arg(QString::fromUtf8(error.what()))};
    }
    client.write(LineOf(answer));
    if (quitting_) {
        client.waitForBytesWritten(1000);
        Finished();
    }
}

void HostService::Dispatch(const HostRequest& request) {
    if (request.verb == HostVerb::OpenReport) OpenReport(request);
    if (request.verb == HostVerb::Maximize && !windows_.isEmpty()) windows_.last()->FillScreen();
    if (request.verb == HostVerb::Quit) quitting_ = true;
}

void HostService::OpenReport(const HostRequest& request) {
    if (request.view != platform::ReportView::Print && request.view != platform::ReportView::Preview)
        throw ReportFailure(u"帳票の表示方法 %1 は使えません。"_s.arg(static_cast<int>(request.view)));
    std::unique_ptr<PreparedReport> report = make_(templateFile_, request.report);
    if (request.view == platform::ReportView::Print) return PrintReport(*report, request.report, templateFile_);
    auto* window = new PreviewWindow(std::move(report), request.report, templateFile_);
    window->setAttribute(Qt::WA_DeleteOnClose);
    windows_.append(window);
    connect(window, &QObject::destroyed, this, [this, window] {
        windows_.removeOne(window);
        QuitWhenIdle();
    });
    window->show();
    window->raise();
    window->activateWindow();
}

/// A newer host serves the template file now. The windows of this one stay open.
void HostService::Release() {
    acceptNotifier_->setEnabled(false);
    listener_.Close();
}

void HostService::QuitWhenIdle() {
    if (clients_ == 0 && windows_.isEmpty() && Finished) Finished();
}
