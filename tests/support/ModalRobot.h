#pragma once

#include <gtest/gtest.h>

#include <QTimer>
#include <functional>

#include "screen/Form.h"
#include "support/FormRobot.h"

/// Somebody at the modal windows of one name: does the same work at each as it appears, while the code under test waits
/// for its end. Where several windows come up one after the other, each with a work of its own, see ModalScript.
/// A window that the work leaves open fails the test and is taken away.
class ModalRobot {
  public:
    using Work = std::function<void(ModalRobot&)>;

    ModalRobot(QString window, Work work) : name_(std::move(window)), work_(std::move(work)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
        timer_.start(0);
    }
    ~ModalRobot() { EXPECT_EQ(leftOpen_, 0) << "the work did not end the window"; }
    ModalRobot(const ModalRobot&) = delete;
    ModalRobot& operator=(const ModalRobot&) = delete;

    /// How many windows came up.
    int Opened() const { return opened_; }
    Form& Dialog() const { return *dialog_; }
    bool IsOpen() const { return Find() != nullptr; }

    FormRobot Hands() const { return FormRobot(*dialog_); }
    Control& Item(const QString& name, int index = -1) const { return Hands().Item(name, index); }
    QString Text(const QString& name, int index = -1) const { return Item(name, index).Text(); }
    QString Focused() const { return Hands().Focused(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const { Hands().Press(key, modifiers); }
    void Type(const QString& text) const { Hands().TypeSigns(text); }
    void Click(const QString& name, int index = -1) const {
        ASSERT_TRUE(IsOpen());
        Hands().Click(name, index);
    }

  private:
    Form* Find() const {
        Form* form = LoadedForm(name_);
        return form != nullptr && form->isVisible() ? form : nullptr;
    }
    void Look() {
        dialog_ = Find();
        if (dialog_ == nullptr) return;
        timer_.stop();
        ++opened_;
        work_(*this);
        if (IsOpen()) {
            ++leftOpen_;
            Find()->UnloadForm();
        }
        timer_.start(0);
    }

    QString name_;
    Work work_;
    QTimer timer_;
    Form* dialog_ = nullptr;
    int opened_ = 0;
    int leftOpen_ = 0;
};
