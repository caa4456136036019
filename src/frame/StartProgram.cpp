#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "frame/Mod要員名簿照会.h"
#include "frame/ProgramGlobals.h"
#include "platform/OutputFile.h"
#include "platform/Services.h"
#include "platform/TerminationSignal.h"
#include "screen/Fonts.h"
#include "screen/Form.h"

namespace {

/// Qt's own dialogs in Japanese.
void InstallTranslation(QApplication& application) {
    static QTranslator translator;
    if (translator.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(&translator);
}

}  // namespace

int main(int argc, char** argv) {
    // First of all: QApplication takes those arguments away that it knows.
    platform::Services().system = std::make_unique<platform::HostSystemInformation>(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    InstallTranslation(application);
    ApplySuiteLook(application);
    platform::LetWritesPastALimitFail();
    platform::OnTerminationRequest([] { Globals().MainForm->close(); });
    Form::RunEvent(Main);
    // A failure that rose out of Main has been shown; without a window there is nothing to go on with.
    if (!Globals().MainForm->isVisible()) LeaveProgram();
    return application.exec();
}
