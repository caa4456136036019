#include "screen/modマウスWHeel.h"

#include <QPointer>
#include <QWheelEvent>
#include <algorithm>
#include <exception>

#include "screen/Form.h"

namespace {

constexpr int kWordDigits = 4;  // of a hexadecimal text

quint32 MessageOf(const QWheelEvent& event) {
    return static_cast<quint32>(static_cast<quint16>(event.angleDelta().y())) << 16;
}

class WheelHook : public QObject {
  public:
    WheelHook(Form& form, Control& scrollBar, int step)
        : QObject(&form), form_(form), barWidget_(&scrollBar.Widget()), bar_(scrollBar), step_(step) {
        form.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Wheel) return false;
        const auto& wheel = static_cast<const QWheelEvent&>(*event);
        // Horizontal scrolling is no wheel message.
        if (wheel.angleDelta().y() == 0 || !form_.Enabled() || barWidget_.isNull()) return false;
        try {
            Scroll(WheelDelta(MessageOf(wheel)));
        } catch (const std::exception&) {
            // Errors of the bar's handlers are ignored; the message is passed on.
        }
        return false;
    }

  private:
    void Scroll(int delta) {
        if (!bar_.Enabled()) return;
        const int wanted = delta < 0 ? bar_.Value() + step_ : bar_.Value() - step_;
        const auto [low, high] = std::minmax({bar_.MinValue(), bar_.MaxValue()});
        bar_.SetValue(std::clamp(wanted, low, high));
    }

    Form& form_;
    QPointer<QWidget> barWidget_;  // null once the bar is destroyed
    Control& bar_;
    int step_;
};

/// The hook belongs to its form and is null after the form has been destroyed.
QPointer<WheelHook>& Hook() {
    static QPointer<WheelHook> hook;
    return hook;
}

}  // namespace

bool InstallWheelHook(Form& form, Control& scrollBar, int step) {
    delete Hook();
    Hook() = new WheelHook(form, scrollBar, step);
    return true;
}

bool RemoveWheelHook() {
    const bool present = !Hook().isNull();
    delete Hook();
    return present;
}

// Parses the hexadecimal text. With a high word of 0 it has no digits for it, so such a message counts as -1.
int WheelDelta(quint32 wParam) {
    const QString digits = QString::number(wParam, 16);
    if (digits.size() <= kWordDigits) return -1;
    return static_cast<qint16>(digits.chopped(kWordDigits).toUShort(nullptr, 16));
}
