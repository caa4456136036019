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

constexpr qint64 kLongestRequest = 1 << 16;
constexpr long kReportFailed = 2501;
constexpr long kNotUnderstood = 5;

}  // namespace

HostService::HostService(HostListener& door, QString formsFile, Maker make)
    : door_(door),
      formsFile_(std::move(formsFile)),
      make_(std::move(make)),
      acceptNotifier_(new QSocketNotifier(door.Socket(), QSocketNotifier::Read, this)) {
    connect(acceptNotifier_, &QSocketNotifier::activated, this, [this] { TakeCallers(); });
    timeout_.setSingleShot(true);
    connect(&timeout_, &QTimer::timeout, this, [this] { QuitWhenIdle(); });
    timeout_.start(kIdleTimeout);
}

HostService::~HostService() {
    Finished = nullptr;
    // Destroying the windows removes the temporary files of their reports.
    for (PreviewWindow* window : std::exchange(windows_, {})) delete window;
}

void HostService::TakeCallers() {
    for (int descriptor = door_.Accept(); descriptor >= 0; descriptor = door_.Accept()) {
        auto* caller = new QLocalSocket(this);
        ++callers_;
        connect(caller, &QLocalSocket::readyRead, this, [this, caller] { ReadRequests(*caller); });
        connect(caller, &QLocalSocket::disconnected, this, [this, caller] {
            caller->deleteLater();
            --callers_;
            QuitWhenIdle();
        });
        caller->setSocketDescriptor(descriptor);
    }
}

void HostService::ReadRequests(QLocalSocket& caller) {
    while (caller.canReadLine()) {
        const std::optional<HostRequest> request = platform::ParseRequest(caller.readLine(kLongestRequest));
        if (request)
            Answer(caller, *request);
        else
            caller.write(LineOf(HostAnswer{kNotUnderstood, u"帳票ホストへの要求が正しくありません。"_s}));
    }
    if (caller.bytesAvailable() > kLongestRequest) caller.abort();
}

void HostService::Answer(QLocalSocket& caller, const HostRequest& request) {
    if (request.verb == HostVerb::Release) return Release();
    HostAnswer answer;
    try {
        Dispatch(request);
    } catch (const ReportFailure& failure) {
        answer = {kReportFailed, failure.Reason()};
    } catch (const platform::RuntimeError& error) {
        answer = {error.Number(), platform::TextForPeople(error)};
    } catch (const std::exception& error) {
        answer = {kReportFailed, u"帳票を作成できません。（%1）"_s.arg(QString::fromUtf8(error.what()))};
    }
    caller.write(LineOf(answer));
    if (quitting_) {
        caller.waitForBytesWritten(1000);
        Finished();
    }
}

void HostService::Dispatch(const HostRequest& request) {
    if (request.verb == HostVerb::OpenReport) OpenReport(request);
    if (request.verb == HostVerb::Maximize && !windows_.isEmpty()) windows_.last()->FillScreen();
    if (request.verb == HostVerb::Quit) quitting_ = true;
}

void HostService::OpenReport(const HostRequest& request) {
    if (request.view != platform::kPrintReport && request.view != platform::kPreviewReport)
        throw ReportFailure(u"帳票の表示方法 %1 は使えません。"_s.arg(request.view));
    std::unique_ptr<PreparedReport> report = make_(formsFile_, request.report);
    if (request.view == platform::kPrintReport) return PrintReport(*report, request.report, formsFile_);
    auto* window = new PreviewWindow(std::move(report), request.report, formsFile_);
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
    door_.Close();
}

void HostService::QuitWhenIdle() {
    if (callers_ == 0 && windows_.isEmpty() && Finished) Finished();
}
