#include "frame/Screenshot.h"

#include <QApplication>
#include <QBuffer>
#include <QPixmap>
#include <QTimer>

#include <cstdio>

#include "globals/ProgramGlobals.h"
#include "platform/AtomicFile.h"
#include "screen/Form.h"

namespace {

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

void TakeFirstListPicture(Form& form) {
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
