#pragma once

#include <QString>
#include <memory>

// IPC with the report host. The implementation uses a local socket (platform/report-host).

namespace platform {

/// What the host does with a report. The values are part of the protocol.
enum class ReportView { Print = 0, Preview = 2 };

/// Connection to a running report host that has a template file open. All calls block until the host has replied and
/// throw RuntimeError: with the host's number and description, or kHostGone if it ends or sends an invalid reply. While
/// blocked, only a request to end the program is handled.
class ReportHost {
  public:
    virtual ~ReportHost() = default;
    /// Print returns when the job has been handed over to the printer or folder, Preview when the window is shown.
    virtual void OpenReport(const QString& report, ReportView view) = 0;
    /// Maximises the preview window that was opened last.
    virtual void Maximize() = 0;
    /// Ends the host with its windows.
    virtual void Quit() = 0;
};

/// Connects to running report hosts.
class ReportHostLink {
  public:
    virtual ~ReportHostLink() = default;
    /// Connects to the host that was started last on this template file (path). A single attempt: throws RuntimeError
    /// kHostNotFound if none is listening now.
    virtual std::unique_ptr<ReportHost> Bind(const QString& templateFile) = 0;
};

inline constexpr long kHostNotFound = 432;
inline constexpr long kHostGone = 462;

/// Connects over a local socket whose name is derived from the path of the template file.
class LocalReportHostLink : public ReportHostLink {
  public:
    /// Takes the timeout in milliseconds for the reply to the bind request.
    explicit LocalReportHostLink(int timeout = 10000) : timeout_(timeout) {}
    std::unique_ptr<ReportHost> Bind(const QString& templateFile) override;

  private:
    int timeout_;
};

}  // namespace platform
