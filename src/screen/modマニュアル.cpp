#include "screen/modマニュアル.h"

#include "frame/ProgramGlobals.h"
#include "platform/Services.h"
#include "text/mod文字変換.h"

using namespace Qt::StringLiterals;

bool OpenDocument(const QString& path) {
    const qsizetype separator = path.lastIndexOf(platform::kPathSeparator);
    const QString folder = separator < 0 ? QString() : path.left(separator);
    return platform::Services().processes->OpenDocument(path, folder);
}

void OpenManual() {
    OpenDocument(Globals().Layout.ManualFolder + platform::kPathSeparator + ToFullWidth(Globals().ProgramId) +
                 u".doc"_s);
}
