#include "support/ModalScript.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>

#include "screen/Form.h"

namespace {
constexpr int kPollInterval = 5;  // milliseconds
}

ModalScript::ModalScript(QList<Callback> callbacks) : callbacks_(std::move(callbacks)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
    timer_.setSingleShot(true);
    timer_.start(0);
}

ModalScript::~ModalScript() { EXPECT_TRUE(callbacks_.isEmpty()) << callbacks_.size() << " windows did not appear"; }

void ModalScript::Poll() {
    // Single shot, restarted first: the callback may open another window, and a timer does not fire inside its own
    // slot.
    timer_.start(kPollInterval);
    auto* window = dynamic_cast<Form*>(QApplication::activeModalWidget());
    if (window == nullptr || busy_.contains(window)) return;
    ++opened_;
    if (callbacks_.isEmpty()) {
        ADD_FAILURE() << "unexpected window " << window->Name().toStdString();
        window->HideForm();
        return;
    }
    Do(*window, callbacks_.takeFirst());
}

void ModalScript::Do(Form& window, const Callback& callback) {
    const QPointer<Form> watched(&window);
    busy_ << &window;
    callback(FormRobot(window));
    busy_.removeOne(&window);
    if (watched == nullptr || !watched->isVisible()) return;
    ADD_FAILURE() << "the callback did not close " << watched->Name().toStdString();
    watched->HideForm();
}
