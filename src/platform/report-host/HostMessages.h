#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

#include "platform/ReportHostLink.h"

// IPC protocol between a program and its report host: one line of UTF-8 JSON for each request and for each reply.

namespace platform {

enum class HostVerb {
    Bind,        ///< no operation; the reply shows that the host is ready
    OpenReport,  ///< prints or previews `report`
    Maximize,    ///< maximises the preview window that was opened last
    Quit,        ///< ends the host
    Release,     ///< sent to the previous host by a new one that serves the same template file; no reply
};

struct HostRequest {
    HostVerb verb = HostVerb::Bind;
    QString report{};                     ///< of OpenReport: name of the report
    ReportView view = ReportView::Print;  ///< of OpenReport, as received: any number; -1 if the message has none
};

struct HostAnswer {
    long number = 0;      ///< 0: success
    QString description;  ///< of the failure; empty on success
};

/// The message as one line, with the line end.
QByteArray LineOf(const HostRequest& request);
QByteArray LineOf(const HostAnswer& answer);
/// nullopt for a line that is not such a message.
std::optional<HostRequest> ParseRequest(const QByteArray& line);
std::optional<HostAnswer> ParseAnswer(const QByteArray& line);

/// Socket path of the host that serves the template file (path): a file in HostFolder named by a hash of the canonical
/// path, so that it is short enough for a socket address and independent of how the path is written. Throws what
/// HostFolder throws.
QString HostSocketPath(const QString& templateFile);

}  // namespace platform
