#include "support/ModalScript.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>

#include "screen/Form.h"

namespace {
constexpr int kPause = 5;  // milliseconds between two looks
}

ModalScript::ModalScript(QList<Work> works) : works_(std::move(works)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
    timer_.setSingleShot(true);
    timer_.start(0);
}

ModalScript::~ModalScript() { EXPECT_TRUE(works_.isEmpty()) << works_.size() << " windows did not come up"; }

void ModalScript::Look() {
    // A timer does not fire again while its own work is going on, and the work may open a further window.
    timer_.start(kPause);
    auto* window = dynamic_cast<Form*>(QApplication::activeModalWidget());
    if (window == nullptr || atWork_.contains(window)) return;
    ++opened_;
    if (works_.isEmpty()) {
        ADD_FAILURE() << "nobody expected " << window->Name().toStdString();
        window->HideForm();
        return;
    }
    Do(*window, works_.takeFirst());
}

void ModalScript::Do(Form& window, const Work& work) {
    const QPointer<Form> watched(&window);
    atWork_ << &window;
    work(FormRobot(window));
    atWork_.removeOne(&window);
    if (watched == nullptr || !watched->isVisible()) return;
    ADD_FAILURE() << "the work did not end " << watched->Name().toStdString();
    watched->HideForm();
}
