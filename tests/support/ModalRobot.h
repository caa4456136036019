#pragma once

#include <gtest/gtest.h>

#include <QTimer>
#include <functional>

#include "screen/Form.h"
#include "support/FormRobot.h"

/// Runs a callback at each modal window of one name as it appears, while the code under test waits in ShowModal. The
/// test fails if the callback leaves the window open; the window is then unloaded. For different callbacks at several
/// windows see ModalScript.
class ModalRobot {
  public:
    using Callback = std::function<void(ModalRobot&)>;

    ModalRobot(QString window, Callback callback) : name_(std::move(window)), callback_(std::move(callback)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
        timer_.start(0);
    }
    ~ModalRobot() { EXPECT_EQ(leftOpen_, 0) << "the callback did not close the window"; }
    ModalRobot(const ModalRobot&) = delete;
    ModalRobot& operator=(const ModalRobot&) = delete;

    /// Number of windows that have appeared.
    int Opened() const { return opened_; }
    Form& Dialog() const { return *dialog_; }
    bool IsOpen() const { return Find() != nullptr; }

    FormRobot Hands() const { return FormRobot(*dialog_); }
    Control& Item(const QString& name, int index = -1) const { return Hands().Item(name, index); }
    QString Text(const QString& name, int index = -1) const { return Item(name, index).Text(); }
    QString Focused() const { return Hands().Focused(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const { Hands().Press(key, modifiers); }
    void Type(const QString& text) const { Hands().TypeText(text); }
    void Click(const QString& name, int index = -1) const {
        ASSERT_TRUE(IsOpen());
        Hands().Click(name, index);
    }

  private:
    Form* Find() const {
        Form* form = LoadedForm(name_);
        return form != nullptr && form->isVisible() ? form : nullptr;
    }
    void Poll() {
        dialog_ = Find();
        if (dialog_ == nullptr) return;
        timer_.stop();
        ++opened_;
        callback_(*this);
        if (IsOpen()) {
            ++leftOpen_;
            Find()->UnloadForm();
        }
        timer_.start(0);
    }

    QString name_;
    Callback callback_;
    QTimer timer_;
    Form* dialog_ = nullptr;
    int opened_ = 0;
    int leftOpen_ = 0;
};
