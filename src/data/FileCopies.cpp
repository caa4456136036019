#include "data/FileCopies.h"

#include "platform/Services.h"

bool FileExistsCheck(const QString& path) { return platform::Services().files->FileExists(path); }

bool CopyFileOver(const QString& source, const QString& target) {
    return platform::Services().files->CopyFile(source, target);
}
