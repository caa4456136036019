#pragma once

#include "support/ModalUser.h"

/// Somebody at the PIN dialog.
class PinDialogDriver : public ModalUser {
  public:
    using Work = std::function<void(PinDialogDriver&)>;

    explicit PinDialogDriver(Work work)
        : ModalUser(QStringLiteral("msg暗証番号確認"), [this, work = std::move(work)](ModalUser&) { work(*this); }) {}

    /// Types over what stands in the PIN and moves on.
    void EnterPin(const QString& pin) const {
        ASSERT_TRUE(IsOpen());
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_Delete);
        Type(pin);
        Press(Qt::Key_Return);
    }
};
