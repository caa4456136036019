#include "report-host/render/RenderWatch.h"

#include <utility>

#include "platform/TerminationSignal.h"

namespace {

RenderWatch* g_innermost = nullptr;

}  // namespace

RenderWatch::RenderWatch(std::function<bool()> stop)
    : stop_(std::move(stop)), outer_(std::exchange(g_innermost, this)) {}

RenderWatch::~RenderWatch() { g_innermost = outer_; }

bool RenderWatch::IsActive() { return g_innermost != nullptr; }

void StopIfWanted() {
    const bool watched = g_innermost != nullptr && g_innermost->stop_();
    if (watched || platform::TerminationRequested()) throw ReportStopped();
}
