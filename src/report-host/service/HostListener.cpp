#include "report-host/service/HostListener.h"

#include "platform/RuntimeError.h"
#include "platform/report-host/HostMessages.h"

HostListener::HostListener(const QString& formsFile) {
    try {
        socket_.Listen(platform::HostSocketPath(formsFile), platform::LineOf({platform::HostVerb::Release, {}, 0}));
    } catch (const platform::RuntimeError& error) {
        refusal_ = error.Description();
    }
}
