#include "screen/SuiteApplication.h"

#include <QFileInfo>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QScreen>
#include <QTranslator>

#include "platform/Services.h"
#include "platform/ToolkitStart.h"
#include "screen/CloseBox.h"
#include "screen/InputMethod.h"
#include "screen/ScreenScale.h"
#include "screen/SuiteStyle.h"
#include "screen/fonts/Fonts.h"
#include "screen/msgお待ち.h"

using namespace Qt::StringLiterals;

namespace {

class ScreenInformation : public platform::LocalSystemInformation {
  public:
    using LocalSystemInformation::LocalSystemInformation;
    QSize ScreenSize() const override {
        const QScreen* screen = QGuiApplication::primaryScreen();
        return screen == nullptr ? QSize() : screen->size();
    }
};

class WaitWindow : public platform::WaitDialog {
  public:
    void Show() override { ShowWaitDialog(); }
    void Unload() override { UnloadWaitDialog(); }
};

int& KeepArguments(int argc, char** argv) {
    ChooseInputMethod();
    platform::Services().system = std::make_unique<ScreenInformation>(argc, argv);
    return ToolkitStart::ArgumentCount(argc);
}

// Name of the desktop entry, which all programs share, and its StartupWMClass.
constexpr const char* kDesktopEntry = "youin-meibo";

/// Qt makes the window class of argv[0], and desktops find the entry of a window by it. The programs' file names are
/// Japanese, which not every desktop reads in a window class.
char** NameForDesktop() {
    static QByteArray name(kDesktopEntry);
    static char* arguments[] = {name.data(), nullptr};
    return arguments;
}

void JoinDesktop(const char* program) {
    QApplication::setApplicationName(QFileInfo(QString::fromLocal8Bit(program)).fileName());
    QApplication::setDesktopFileName(QString::fromLatin1(kDesktopEntry));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) icon.addFile(u":/icons/%1.png"_s.arg(size));
    QApplication::setWindowIcon(icon);
}

QPalette BusinessPalette() {
    const QColor face(0xF0, 0xEE, 0xE9);
    QPalette palette(face);
    palette.setColor(QPalette::Window, face);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::ButtonText, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0x31, 0x6A, 0xC5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xE4, 0xE2, 0xDD));
    return palette;
}

}  // namespace

void ApplySuiteStyle(QApplication& application) {
    application.setStyle(new SuiteStyle);
    application.setPalette(BusinessPalette());
    application.setFont(SuiteFont(SuiteFace::PGothic, 10));
}

void InstallTranslator(QCoreApplication& application) {
    auto* translator = new QTranslator(&application);
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    if (translator->load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(translator);
}

void InstallWindowServices(platform::ServiceSet& services) {
    services.dialogs = std::make_unique<WidgetDialogs>();
    services.waitDialog = std::make_unique<WaitWindow>();
}

/// What exists only while Qt starts.
struct SuiteApplication::Preparation {
    explicit Preparation(const char* program) : toolkit(program), scale(program) {}

    ToolkitStart toolkit;  // first: the scale needs Qt as well
    ScreenScale scale;
};

SuiteApplication::SuiteApplication(int argc, char** argv, std::unique_ptr<Preparation> preparation)
    : QApplication(KeepArguments(argc, argv), NameForDesktop()) {
    preparation.reset();
    JoinDesktop(argc > 0 ? argv[0] : "");
    InstallWindowServices(platform::Services());
    setQuitOnLastWindowClosed(false);
    WatchCloseBoxes();
    InstallTranslator(*this);
    ApplySuiteStyle(*this);
}

SuiteApplication::SuiteApplication(int argc, char** argv)
    : SuiteApplication(argc, argv, std::make_unique<Preparation>(argc > 0 ? argv[0] : "")) {}
