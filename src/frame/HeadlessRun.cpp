// Part of Mod要員名簿照会.h: headless runs, which close modal windows and save a screenshot.

#include <QApplication>
#include <QBuffer>
#include <QEvent>
#include <QMessageBox>
#include <QPixmap>
#include <QTimer>

#include <cstdio>

#include "frame/Mod要員名簿照会.h"
#include "globals/ProgramGlobals.h"
#include "platform/AtomicFile.h"
#include "screen/Form.h"

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

void SavePicture(QWidget& window, const QString& file) {
    const QPixmap picture = window.grab();
    std::printf("rows=%d\n", Globals().LastRow + 1);
    std::fflush(stdout);
    QBuffer png;
    QString error;
    if (!picture.save(&png, "PNG") || !platform::ReplaceFile(file, png.data(), error))
        std::fprintf(stderr, "%s: the picture cannot be written\n", qPrintable(file));
}

/// Opens the lookup of an item as Ctrl does, and saves a picture of the window while it waits for the user.
void SaveLookup(Form& form, const QString& item, const QString& file) {
    QTimer::singleShot(0, &form, [&form, file] {
        QWidget* lookup = QApplication::activeModalWidget();
        SavePicture(lookup == nullptr ? form : *lookup, file);
        form.close();
    });
    form.Item(item).SetFocus();
    form.Item(item).KeyDown(kKeyControl);
}

}  // namespace

void CloseModalWindowsIfHeadless(QApplication& application) {
    if (!qEnvironmentVariableIsEmpty("MEIBO_PICTURE"))
        application.installEventFilter(new ModalAutoCloser(&application));
}

void SaveScreenshotIfHeadless(Form& form) {
    const QString file = qEnvironmentVariable("MEIBO_PICTURE");
    const QString lookup = qEnvironmentVariable("MEIBO_PICTURE_LOOKUP");
    if (file.isEmpty()) return;
    // After all events queued by showing the form, so that the picture is complete.
    QTimer::singleShot(0, &form, [&form, file, lookup] {
        if (!lookup.isEmpty()) return Form::RunEvent([&] { SaveLookup(form, lookup, file); });
        SavePicture(form, file);
        form.close();
    });
}
