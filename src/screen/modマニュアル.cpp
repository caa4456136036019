#include "screen/modマニュアル.h"

#include "platform/Services.h"
#include "text/mod文字変換.h"

using namespace Qt::StringLiterals;

bool OpenDocument(const QString& path) {
    const qsizetype separator = path.lastIndexOf(platform::kPathSeparator);
    const QString folder = separator < 0 ? QString() : path.left(separator);
    return platform::Services().processes->OpenDocument(path, folder);
}

void OpenManual(const QString& folder, const QString& programId) {
    OpenDocument(folder + platform::kPathSeparator + ToFullWidth(programId) + u".doc"_s);
}
