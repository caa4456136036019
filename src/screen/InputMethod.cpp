#include "screen/InputMethod.h"

#include <QByteArrayList>
#include <QGuiApplication>
#include <QInputMethod>

void ChooseInputMethod() {
    constexpr const char* kModule = "QT_IM_MODULE";
    if (!qEnvironmentVariableIsEmpty(kModule)) return;
    // A list of settings, such as "@im=fcitx@other=x".
    for (const QByteArray& setting : qgetenv("XMODIFIERS").split('@')) {
        const QByteArray name = setting.startsWith("im=") ? setting.sliced(3) : QByteArray();
        if (name == "fcitx" || name == "fcitx5" || name == "ibus") qputenv(kModule, name);
    }
}

void CommitComposition() { QGuiApplication::inputMethod()->commit(); }
