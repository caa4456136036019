#include "frame/HeadlessRun.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>

namespace {

void Print(const QWidget& window) {
    const auto* box = qobject_cast<const QMessageBox*>(&window);
    QString text = box == nullptr ? window.windowTitle() : box->text();
    std::printf("message=%s\n", qUtf8Printable(text.replace(u'\r', u' ').replace(u'\n', u' ')));
    std::fflush(stdout);
}

/// Closes modal windows, which would otherwise block a headless run.
class ModalAutoCloser : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* window = event->type() == QEvent::Show ? qobject_cast<QWidget*>(watched) : nullptr;
        // Deferred: a modal window can only be closed once its event loop runs.
        if (window != nullptr && window->isWindow() && window->isModal())
            QTimer::singleShot(0, window, [window] {
                Print(*window);
                window->close();
            });
        return false;
    }
};

}  // namespace

void AutoCloseModalWindows(QApplication& application) {
    if (!qEnvironmentVariableIsEmpty("MEIBO_PICTURE"))
        application.installEventFilter(new ModalAutoCloser(&application));
}
