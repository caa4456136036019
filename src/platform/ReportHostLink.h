#pragma once

#include <QString>
#include <memory>

namespace platform {

/// A running report host that has a forms file open. All members return when the host has done what they ask, and throw
/// RuntimeError with the host's own description otherwise. Meanwhile nothing reaches the program but what ends it.
class ReportHost {
  public:
    virtual ~ReportHost() = default;
    /// View kPrintReport returns when the print has been handed over; kPreviewReport when it stands on the screen.
    virtual void OpenReport(const QString& report, int view) = 0;
    /// Makes the window of the report opened last as large as the screen.
    virtual void Maximize() = 0;
    virtual void Quit() = 0;
};

inline constexpr int kPrintReport = 0;
inline constexpr int kPreviewReport = 2;

/// The way to running report hosts.
class ReportHostLink {
  public:
    virtual ~ReportHostLink() = default;
    /// The host that was started last on the forms file. One try: RuntimeError kHostNotFound when there is none now.
    virtual std::unique_ptr<ReportHost> Bind(const QString& formsFile) = 0;
};

inline constexpr long kHostNotFound = 432;
inline constexpr long kHostGone = 462;

/// Hosts reached by a socket whose name comes from the forms file.
class LocalReportHostLink : public ReportHostLink {
  public:
    /// `patience`: milliseconds that a host which listens already has to answer the bind.
    explicit LocalReportHostLink(int patience = 10000) : timeout_(patience) {}
    std::unique_ptr<ReportHost> Bind(const QString& formsFile) override;

  private:
    int timeout_;
};

}  // namespace platform
