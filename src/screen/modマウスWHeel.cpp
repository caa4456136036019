#include "screen/modマウスWHeel.h"

#include <QString>

#include <algorithm>

#include "platform/RuntimeError.h"
#include "screen/Form.h"

namespace {

struct Hook {
    Form* form = nullptr;
    Control* bar = nullptr;
    int step = 0;
};

Hook& Installed() {
    static Hook hook;
    return hook;
}

void MoveBar(quint32 parameter) {
    Control& bar = *Installed().bar;
    if (!bar.Enabled()) return;
    const int step = WheelDelta(parameter) < 0 ? Installed().step : -Installed().step;
    const auto [low, high] = std::minmax(bar.MinValue(), bar.MaxValue());
    bar.SetValue(std::clamp(bar.Value() + step, low, high));
}

/// What goes wrong here must not reach the event loop: the message is passed on all the same.
void OnWheel(int delta) {
    try {
        MoveBar(static_cast<quint32>(delta) << 16);
    } catch (const platform::RuntimeError&) {
        return;
    }
}

}  // namespace

bool InstallWheelHook(Form& form, Control& bar, int step) {
    Installed() = {&form, &bar, step};
    form.WheelTurned = OnWheel;
    return true;
}

bool RemoveWheelHook() {
    if (Installed().form != nullptr) Installed().form->WheelTurned = nullptr;
    Installed() = {};
    return true;
}

qint32 WheelDelta(quint32 parameter) {
    const QString digits = QString::number(parameter, 16);
    if (digits.size() <= 4) return -1;
    return static_cast<qint16>(digits.chopped(4).toUShort(nullptr, 16));
}
