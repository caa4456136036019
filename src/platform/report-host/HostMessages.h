#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

// What a program and its report host say to each other: lines of UTF-8 text, a request at a time, each answered by one
// line.

namespace platform {

enum class HostVerb {
    Bind,        ///< are you there?
    OpenReport,  ///< name and view
    Maximize,
    Quit,
    Release,  ///< from a host that takes over the forms file; not answered
};

struct HostRequest {
    HostVerb verb = HostVerb::Bind;
    QString report;
    int view = 0;
};

struct HostAnswer {
    long number = 0;  ///< 0: done
    QString description;
};

/// With the line end.
QByteArray LineOf(const HostRequest& request);
QByteArray LineOf(const HostAnswer& answer);
/// None for a line that is no such message.
std::optional<HostRequest> ParseRequest(const QByteArray& line);
std::optional<HostAnswer> ParseAnswer(const QByteArray& line);

/// The socket of the host that has the forms file open: in a folder that only this user can enter, and short enough for
/// every system. The same for every way to write the path of one file. Throws RuntimeError like HostFolder.
QString HostSocketPath(const QString& formsFile);

}  // namespace platform
