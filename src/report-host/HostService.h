#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <memory>

#include "platform/report-host/HostMessages.h"

class HostDoor;
class PreparedReport;
class PreviewWindow;
class QLocalSocket;
class QSocketNotifier;

/// Answers the programs that come through the door, one request after the other. Failures become answers; nothing is
/// shown. When the last program has gone and no window stands, or nobody ever came, `Finished` is called.
class HostService : public QObject {
  public:
    using Maker = std::function<std::unique_ptr<PreparedReport>(const QString& formsFile, const QString& report)>;

    HostService(HostDoor& door, QString formsFile, Maker make);
    ~HostService() override;

    std::function<void()> Finished;

    /// Whoever starts a host comes within moments, or has died.
    static constexpr int kPatienceForCallers = 60000;  // milliseconds

  private:
    void TakeCallers();
    void ReadRequests(QLocalSocket& caller);
    void Answer(QLocalSocket& caller, const platform::HostRequest& request);
    void Carry(const platform::HostRequest& request);
    void OpenReport(const platform::HostRequest& request);
    void StepAside();
    void LeaveWhenAlone();

    HostDoor& door_;
    QString formsFile_;
    Maker make_;
    QSocketNotifier* knocking_;
    QTimer patience_;
    int callers_ = 0;
    bool quitting_ = false;
    PreviewWindow* lastWindow_ = nullptr;
    int windows_ = 0;
};
