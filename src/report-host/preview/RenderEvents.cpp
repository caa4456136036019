#include "report-host/preview/RenderEvents.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>

#include "platform/TerminationSignal.h"
#include "screen/InputEvent.h"

namespace {

class InputDrop : public QObject {
  public:
    // Not all event dispatchers honour ExcludeSocketNotifiers. The data stays in the socket.
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        return IsInput(event->type()) || event->type() == QEvent::SockAct;
    }
};

}  // namespace

void ProcessRenderEvents() {
    QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr || application->thread() != QThread::currentThread()) return;
    platform::ServeTerminationRequest();
    InputDrop drop;
    application->installEventFilter(&drop);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers | QEventLoop::X11ExcludeTimers);
}
