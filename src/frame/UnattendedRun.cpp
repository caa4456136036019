#include "frame/UnattendedRun.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QPixmap>
#include <QTimer>

#include <cstdio>

#include "frame/ProgramGlobals.h"
#include "screen/Form.h"

namespace {

QString PictureFile() { return qEnvironmentVariable("MEIBO_PICTURE"); }

void Tell(const QWidget& window) {
    const auto* box = qobject_cast<const QMessageBox*>(&window);
    QString text = box == nullptr ? window.windowTitle() : box->text();
    std::printf("message=%s\n", qUtf8Printable(text.replace(u'\r', u' ').replace(u'\n', u' ')));
    std::fflush(stdout);
}

/// Waits for modal windows, which would stand for ever.
class NobodyThere : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* window = event->type() == QEvent::Show ? qobject_cast<QWidget*>(watched) : nullptr;
        // Only once its own event loop runs can it be closed.
        if (window != nullptr && window->isWindow() && window->isModal())
            QTimer::singleShot(0, window, [window] {
                Tell(*window);
                window->close();
            });
        return false;
    }
};

}  // namespace

void TellAndCloseModalWindows(QApplication& application) {
    if (!PictureFile().isEmpty()) application.installEventFilter(new NobodyThere(&application));
}

void TakeFirstListPicture(Form& form) {
    const QString file = PictureFile();
    if (file.isEmpty()) return;
    // After everything that the show has put into the event queue, so that the picture is what a clerk sees.
    QTimer::singleShot(0, &form, [&form, file] {
        const QPixmap picture = form.grab();
        std::printf("rows=%d\n", Globals().LastRow + 1);
        std::fflush(stdout);
        if (!picture.save(file, "PNG")) std::fprintf(stderr, "%s: the picture cannot be written\n", qPrintable(file));
        form.close();
    });
}
