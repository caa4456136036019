#pragma once

#include <QString>
#include <memory>

#include "platform/ReportHostLink.h"

/// One run of the report host. All but the application keep their values until the next run.
struct HostRun {
    QString HostFolder;             ///< as it is registered, cut at its NUL
    quint32 HostProcessId = 0;      ///< of the start
    quint32 HostProcessHandle = 0;  ///< of OpenProcess; after a preview it stays open
    quint32 HostExitCode = 0;
    std::unique_ptr<platform::ReportHost> HostApplication;  ///< none but while the host is being driven
};
