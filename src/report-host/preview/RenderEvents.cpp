#include "report-host/preview/RenderEvents.h"

#include <QCoreApplication>
#include <QThread>

#include "platform/TerminationSignal.h"
#include "screen/PendingInput.h"

void ProcessRenderEvents() {
    const QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr || application->thread() != QThread::currentThread()) return;
    platform::ServeTerminationRequest();
    ProcessEventsWithoutInput();
}
