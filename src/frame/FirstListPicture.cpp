#include "frame/FirstListPicture.h"

#include <QPixmap>
#include <QTimer>

#include <cstdio>

#include "frame/ProgramGlobals.h"
#include "screen/Form.h"

void TakeFirstListPicture(Form& form) {
    const QString file = qEnvironmentVariable("MEIBO_PICTURE");
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
