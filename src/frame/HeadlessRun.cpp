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

/// Waits for modal windows, which would stand for ever.
class ModalAutoCloser : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* window = event->type() == QEvent::Show ? qobject_cast<QWidget*>(watched) : nullptr;
        // Only once its own event loop runs can it be closed.
        if (window != nullptr && window->isWindow() && window->isModal())
            QTimer::singleShot(0, window, [window] {
                Print(*window);
                window->close();
            });
        return false;
    }
};

}  // namespace

void TellAndCloseModalWindows(QApplication& application) {
    if (!qEnvironmentVariableIsEmpty("MEIBO_PICTURE"))
        application.installEventFilter(new ModalAutoCloser(&application));
}
