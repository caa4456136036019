#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>
#include <functional>

#include "screen/Form.h"

/// Somebody at a modal window: works each one of that name as it appears, while the code under test waits for its end.
/// A window that the work leaves open fails the test and is taken away.
class ModalUser {
  public:
    using Work = std::function<void(ModalUser&)>;

    ModalUser(QString window, Work work) : name_(std::move(window)), work_(std::move(work)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
        timer_.start(0);
    }
    ~ModalUser() { EXPECT_EQ(leftOpen_, 0) << "the work did not end the window"; }
    ModalUser(const ModalUser&) = delete;
    ModalUser& operator=(const ModalUser&) = delete;

    /// How many windows came up.
    int Opened() const { return opened_; }
    Form& Dialog() const { return *dialog_; }
    bool IsOpen() const { return Find() != nullptr; }

    Control& Item(const QString& name, int index = -1) const { return dialog_->Item(name, index); }
    QString Text(const QString& name, int index = -1) const { return Item(name, index).Text(); }
    /// Name of the item that has the focus, empty for none.
    QString Focused() const {
        const Control* active = dialog_->ActiveControl();
        return active == nullptr ? QString() : active->Name();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(Receiver(), key, modifiers);
    }
    void Type(const QString& text) const {
        for (const QChar sign : text)
            QTest::sendKeyEvent(QTest::Click, Receiver(), Qt::Key_unknown, sign, Qt::NoModifier);
    }
    void Click(const QString& name, int index = -1) const {
        ASSERT_TRUE(IsOpen());
        QTest::mouseClick(&Item(name, index).FocusWidget(), Qt::LeftButton);
    }

  private:
    Form* Find() const {
        Form* form = LoadedForm(name_);
        return form != nullptr && form->isVisible() ? form : nullptr;
    }
    QWidget* Receiver() const {
        Control* active = dialog_->ActiveControl();
        return active == nullptr ? static_cast<QWidget*>(dialog_) : &active->FocusWidget();
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
