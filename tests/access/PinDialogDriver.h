#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>
#include <functional>

#include "screen/Form.h"

/// Somebody at the PIN dialog: works each one as it appears, while the code under test waits for its end.
class PinDialogDriver {
  public:
    using Work = std::function<void(PinDialogDriver&)>;

    explicit PinDialogDriver(Work work) : work_(std::move(work)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
        timer_.start(0);
    }
    ~PinDialogDriver() { EXPECT_EQ(leftOpen_, 0) << "the work did not end the dialog"; }

    /// How many dialogs came up.
    int Opened() const { return opened_; }
    Form& Dialog() const { return *dialog_; }
    bool IsOpen() const { return Find() != nullptr; }

    Control& Item(const QString& name) const { return dialog_->Item(name); }
    QString Text(const QString& name) const { return Item(name).Text(); }
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
    void Click(const QString& name) const {
        ASSERT_TRUE(IsOpen());
        QTest::mouseClick(&Item(name).FocusWidget(), Qt::LeftButton);
    }
    /// Types over what stands in the PIN and moves on.
    void EnterPin(const QString& pin) const {
        ASSERT_TRUE(IsOpen());
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_Delete);
        Type(pin);
        Press(Qt::Key_Return);
    }

  private:
    static Form* Find() {
        for (Form* form : LoadedForms())
            if (form->Name() == QStringLiteral("msg暗証番号確認") && form->isVisible()) return form;
        return nullptr;
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

    Work work_;
    QTimer timer_;
    Form* dialog_ = nullptr;
    int opened_ = 0;
    int leftOpen_ = 0;
};
