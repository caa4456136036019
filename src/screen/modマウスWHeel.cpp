#include "screen/modマウスWHeel.h"

#include <QPointer>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <utility>

#include "screen/Form.h"

namespace {

constexpr int kWordDigits = 4;  // of a hexadecimal text

constexpr int kMessageAngle = 120;  // of a wheel with notches, in eighths of a degree
constexpr quint64 kRestTime = 500;  // milliseconds

quint32 MessageOf(int angle) { return static_cast<quint32>(static_cast<quint16>(angle)) << 16; }

/// Gathers the small turns of touchpads to the angle of one message. A turn of that angle or more is one message.
class TurnGatherer {
  public:
    /// The angle of the message that the turn completes; 0 if more turns are needed.
    int Add(int angle, quint64 time) {
        const bool continues = time - std::exchange(time_, time) <= kRestTime && (rest_ < 0) == (angle < 0);
        if (!continues) rest_ = 0;
        const int gathered = std::exchange(rest_, 0) + angle;
        if (std::abs(angle) >= kMessageAngle) return angle;
        rest_ = gathered % kMessageAngle;
        return gathered - rest_;
    }
    void Reset() { rest_ = 0; }

  private:
    int rest_ = 0;
    quint64 time_ = 0;  ///< of the last turn
};

class WheelHook : public QObject {
  public:
    WheelHook(Form& form, Control& scrollBar, int step)
        : QObject(&form), form_(form), barWidget_(&scrollBar.Widget()), bar_(scrollBar), step_(step) {
        form.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        // The next turn may be one over another window.
        if (event->type() == QEvent::Leave || event->type() == QEvent::WindowDeactivate) turns_.Reset();
        if (event->type() == QEvent::Wheel) Turn(static_cast<const QWheelEvent&>(*event));
        return false;
    }

  private:
    void Turn(const QWheelEvent& wheel) {
        const int angle = wheel.angleDelta().y();
        if (angle == 0) return;  // horizontal scrolling is no wheel message
        if (!form_.Enabled() || barWidget_.isNull() || !bar_.Enabled()) return turns_.Reset();
        const int message = turns_.Add(angle, wheel.timestamp());
        if (message == 0) return;
        try {
            Scroll(WheelDelta(MessageOf(message)));
        } catch (const std::exception&) {
            // Errors of the bar's handlers are ignored; the message is passed on.
        }
    }

    void Scroll(int delta) {
        const int wanted = delta < 0 ? bar_.Value() + step_ : bar_.Value() - step_;
        const auto [low, high] = std::minmax({bar_.MinValue(), bar_.MaxValue()});
        bar_.SetValue(std::clamp(wanted, low, high));
    }

    Form& form_;
    QPointer<QWidget> barWidget_;  // null once the bar is destroyed
    Control& bar_;
    int step_;
    TurnGatherer turns_;
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
