#include "screen/ScreenScale.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include <xcb/xcb.h>

namespace {

constexpr const char* kScaleFactor = "QT_SCALE_FACTOR";
constexpr double kStep = 1.0 / 16;

bool HasScreen() {
    const QByteArray name = qgetenv("QT_QPA_PLATFORM");
    return !name.startsWith("offscreen") && !name.startsWith("minimal");
}

/// Replaces an environment variable while it exists.
class ScopedVariable {
  public:
    ScopedVariable(const char* name, const char* value) : name_(name) {
        if (qEnvironmentVariableIsSet(name)) before_ = qgetenv(name);
        if (value == nullptr)
            qunsetenv(name);
        else
            qputenv(name, value);
    }
    ~ScopedVariable() {
        if (before_)
            qputenv(name_, *before_);
        else
            qunsetenv(name_);
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

  private:
    const char* name_;
    std::optional<QByteArray> before_;
};

/// Only Qt knows what it makes of the desktop's settings, and only with an application object. That object must not
/// consume the token of the program's start, and needs neither session nor input method.
ScreenMeasure Measure(const char* program) {
    const ScopedVariable startup("DESKTOP_STARTUP_ID", nullptr);
    const ScopedVariable activation("XDG_ACTIVATION_TOKEN", nullptr);
    const ScopedVariable session("SESSION_MANAGER", nullptr);
    const ScopedVariable inputMethod("QT_IM_MODULE", "none");
    int count = 1;
    std::array<char*, 2> arguments = {const_cast<char*>(program), nullptr};
    const QGuiApplication probe(count, arguments.data());
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) return {};
    const double scale = screen->devicePixelRatio();
    const bool fixed =
        !qEnvironmentVariableIsEmpty(kScaleFactor) || !qEnvironmentVariableIsEmpty("QT_SCREEN_SCALE_FACTORS");
    return {screen->size() * scale, screen->availableSize() * scale, scale, fixed};
}

}  // namespace

double ScaleToSuit(const ScreenMeasure& screen) {
    const bool full = screen.pixels.height() >= kFullScreenHeight * screen.scale;
    const QSize window = full ? kFullWindow : kLowWindow;
    const QSizeF free = QSizeF(screen.available) - QSizeF(kLargestFrame) * screen.scale;
    double scale = std::min(free.width() / window.width(), free.height() / window.height());
    if (full) scale = std::min(scale, double(screen.pixels.height()) / kFullScreenHeight);
    if (screen.fixed && scale >= screen.scale) return screen.scale;
    return std::max(std::floor(scale / kStep) * kStep, std::min(screen.scale, 1.0));
}

// An X server without a desktop resets itself when its last client leaves. The connection keeps it from doing so
// between the measurement and the real start.
ScreenScale::ScreenScale(const char* program) : connection_(HasScreen() ? xcb_connect(nullptr, nullptr) : nullptr) {
    if (!HasScreen()) return;
    const ScreenMeasure screen = Measure(program);
    const double scale = screen.pixels.isEmpty() ? 0 : ScaleToSuit(screen);
    if (scale == 0 || scale == screen.scale) return;
    before_ = qgetenv(kScaleFactor);
    const double users = before_.isEmpty() ? 1 : before_.toDouble();
    qputenv(kScaleFactor, QByteArray::number((users > 0 ? users : 1) * scale / screen.scale, 'g', 17));
    changed_ = true;
}

ScreenScale::~ScreenScale() {
    if (connection_ != nullptr) xcb_disconnect(connection_);
    if (!changed_) return;
    if (before_.isNull())
        qunsetenv(kScaleFactor);
    else
        qputenv(kScaleFactor, before_);
}
