#include "report-host/render/RenderWatch.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <utility>

#include "platform/InputEvent.h"
#include "platform/TerminationSignal.h"

namespace {

RenderWatch* g_innermost = nullptr;

class InputDrop : public QObject {
  public:
    // Not all event dispatchers honour ExcludeSocketNotifiers. The data stays in the socket.
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        return platform::IsInput(event->type()) || event->type() == QEvent::SockAct;
    }
};

}  // namespace

RenderWatch::RenderWatch(std::function<bool()> stop)
    : stop_(std::move(stop)), outer_(std::exchange(g_innermost, this)) {}

RenderWatch::~RenderWatch() { g_innermost = outer_; }

bool RenderWatch::IsActive() { return g_innermost != nullptr; }

void StopIfWanted() {
    const bool watched = g_innermost != nullptr && g_innermost->stop_();
    if (watched || platform::TerminationRequested()) throw ReportStopped();
}

void ProcessRenderEvents() {
    QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr || application->thread() != QThread::currentThread()) return;
    platform::ServeTerminationRequest();
    InputDrop drop;
    application->installEventFilter(&drop);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers | QEventLoop::X11ExcludeTimers);
}
