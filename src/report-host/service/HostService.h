#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <memory>

#include "platform/report-host/HostMessages.h"

class HostListener;
class PreparedReport;
class PreviewWindow;
class QLocalSocket;
class QSocketNotifier;

/// Answers the programs that come through the door, one request after the other. Failures become answers; nothing is
/// shown. When the last program has gone and no window stands, or nobody ever came, `Finished` is called.
class HostService : public QObject {
  public:
    using Maker = std::function<std::unique_ptr<PreparedReport>(const QString& formsFile, const QString& report)>;

    HostService(HostListener& door, QString formsFile, Maker make);
    ~HostService() override;

    std::function<void()> Finished;

    /// Whoever starts a host comes within moments, or has died.
    static constexpr int kIdleTimeout = 60000;  // milliseconds

  private:
    void TakeCallers();
    void ReadRequests(QLocalSocket& caller);
    void Answer(QLocalSocket& caller, const platform::HostRequest& request);
    void Dispatch(const platform::HostRequest& request);
    void OpenReport(const platform::HostRequest& request);
    void Release();
    void QuitWhenIdle();

    HostListener& door_;
    QString formsFile_;
    Maker make_;
    QSocketNotifier* acceptNotifier_;
    QTimer timeout_;
    int callers_ = 0;
    bool quitting_ = false;
    QList<PreviewWindow*> windows_;  ///< in the order of their opening
};
