#pragma once

#include "support/ModalRobot.h"

/// Robot that operates the PIN dialog.
class PinDialogDriver : public ModalRobot {
  public:
    using Work = std::function<void(PinDialogDriver&)>;

    explicit PinDialogDriver(Work work)
        : ModalRobot(QStringLiteral("msg暗証番号確認"), [this, work = std::move(work)](ModalRobot&) { work(*this); }) {}

    /// Replaces the PIN by keys and leaves the item with Enter.
    void EnterPin(const QString& pin) const {
        ASSERT_TRUE(IsOpen());
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_Delete);
        Type(pin);
        Press(Qt::Key_Return);
    }
};
