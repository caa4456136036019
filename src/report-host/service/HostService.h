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

/// Serves the requests of the connected clients, one after the other: prints or previews reports of one template file.
/// Failures are sent as replies, never shown. HostVerb::Release closes the listening socket; open previews stay.
class HostService : public QObject {
  public:
    /// Loads a report, as PrepareReport does; tests pass a fake.
    using Maker = std::function<std::unique_ptr<PreparedReport>(const QString& templateFile, const QString& report)>;

    /// `listener` must be open and outlive the service.
    HostService(HostListener& listener, QString templateFile, Maker make);
    ~HostService() override;

    /// Called when the host may end: after HostVerb::Quit, when no client is connected and no preview is open any more,
    /// or if no client connects within kIdleTimeout.
    std::function<void()> Finished;

    /// Timeout for the first connection: the program that starts a host connects at once or has crashed.
    static constexpr int kIdleTimeout = 60000;  // milliseconds

  private:
    void AcceptClients();
    void ReadRequests(QLocalSocket& client);
    void Respond(QLocalSocket& client, const platform::HostRequest& request);
    void Dispatch(const platform::HostRequest& request);
    void OpenReport(const platform::HostRequest& request);
    void Release();
    void QuitWhenIdle();

    HostListener& listener_;
    QString templateFile_;
    Maker make_;
    QSocketNotifier* acceptNotifier_;
    QTimer timeout_;
    int clients_ = 0;
    bool quitting_ = false;
    QList<PreviewWindow*> windows_;  ///< in the order of opening
};
