#include "report-host/service/HostListener.h"

#include "platform/RuntimeError.h"
#include "platform/report-host/HostMessages.h"

HostListener::HostListener(const QString& templateFile) {
    try {
        socket_.Listen(platform::HostSocketPath(templateFile), platform::LineOf({.verb = platform::HostVerb::Release}));
    } catch (const platform::RuntimeError& error) {
        openError_ = error.Description();
    }
}
