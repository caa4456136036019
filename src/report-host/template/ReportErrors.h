#pragma once

#include <QString>

#include "platform/RuntimeError.h"

/// Error number of everything below.
inline constexpr long kReportFailed = 2501;

/// Why a report can't be made or printed. The description is a Japanese sentence for the user.
class ReportFailure : public platform::RuntimeError {
  public:
    explicit ReportFailure(const QString& reason) : RuntimeError(kReportFailed, reason) {}
};

/// Thrown when the rendering of a report is cancelled.
class ReportStopped : public ReportFailure {
  public:
    ReportStopped() : ReportFailure(QStringLiteral("帳票の作成を中止しました。")) {}
};

namespace report {

/// An error in a template. Thrown while a line is parsed and then collected. The description is a Japanese sentence.
class TemplateError : public platform::RuntimeError {
  public:
    TemplateError(int line, const QString& reason) : RuntimeError(kReportFailed, reason), line_(line) {}

    /// Counted from 1; 0: not related to a line.
    int Line() const { return line_; }

    /// "12 行目: …", or only the description if the error has no line. A long description is shortened in the middle.
    QString Text() const {
        constexpr qsizetype kLongest = 300, kEnd = 60;
        const QString& reason = Description();
        const QString shown =
            reason.size() > kLongest ? reason.left(kLongest - kEnd) + u'…' + reason.right(kEnd) : reason;
        return line_ > 0 ? QStringLiteral("%1 行目: ").arg(line_) + shown : shown;
    }

  private:
    int line_;
};

}  // namespace report
