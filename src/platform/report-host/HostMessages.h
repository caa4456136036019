#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

#include "platform/ReportHostLink.h"

// IPC protocol between a program and its report host: one line of UTF-8 JSON for each request and for each reply.

namespace platform {

enum class HostVerb {
    Bind,        ///< ping
    OpenReport,  ///< report name and view
    Maximize,
    Quit,
    Release,  ///< sent by a host that takes over the template file; no reply
};

struct HostRequest {
    HostVerb verb = HostVerb::Bind;
    QString report{};
    ReportView view = ReportView::Print;  ///< as received: may be any number
};

struct HostAnswer {
    long number = 0;  ///< 0: success
    QString description;
};

/// Serialise to one line, including the line end.
QByteArray LineOf(const HostRequest& request);
QByteArray LineOf(const HostAnswer& answer);
/// nullopt for a line that is not such a message.
std::optional<HostRequest> ParseRequest(const QByteArray& line);
std::optional<HostAnswer> ParseAnswer(const QByteArray& line);

/// Socket path of the host that serves the template file: in HostFolder, derived from a hash of the canonical path, so
/// that it is short enough for sun_path and independent of how the path is written. Throws RuntimeError like
/// HostFolder.
QString HostSocketPath(const QString& templateFile);

}  // namespace platform
