#pragma once

#include <QString>
#include <memory>

// IPC with the report host. The implementation uses a local socket (platform/report-host).

namespace platform {

/// What the host does with a report. The values are part of the protocol.
enum class ReportView { Print = 0, Preview = 2 };

/// Connection to a running report host, the program that prints and previews the reports of a template file. All calls
/// block until the host has replied; no events are processed, only a request to end the program (EndRequest.h). They
/// throw RuntimeError: with number and description of the host's reply, or kHostGone if the host ends or sends an
/// invalid reply.
class ReportHost {
  public:
    virtual ~ReportHost() = default;
    /// Prints or previews the report of that name. Print returns when the job has been passed to the printer or written
    /// to the output folder, Preview when the window is shown.
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
    /// Connects to the host that was started last on the template file (path), and waits for its first reply. A single
    /// attempt: throws RuntimeError kHostNotFound if no host of this user is listening now, kHostGone if it does not
    /// reply.
    virtual std::unique_ptr<ReportHost> Bind(const QString& templateFile) = 0;
};

// Numbers of RuntimeError.
inline constexpr long kHostNotFound = 432;
inline constexpr long kHostGone = 462;

/// Connects over a local socket whose name is derived from the path of the template file.
class LocalReportHostLink : public ReportHostLink {
  public:
    /// `timeout`: milliseconds to wait for the first reply.
    explicit LocalReportHostLink(int timeout = 10000) : timeout_(timeout) {}
    std::unique_ptr<ReportHost> Bind(const QString& templateFile) override;

  private:
    int timeout_;
};

}  // namespace platform
