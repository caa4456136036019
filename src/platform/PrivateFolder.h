#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace platform {

/// Makes a folder safe for the current user. Sets mode 0700 on it and on own folders inside, then checks that it is a
/// real folder owned by the user and contains only folders and plain files without further hard links, of the user
/// or of root. Another user's link in it could redirect our writes. A missing folder is fine. Throws RuntimeError with
/// one line for each problem; nothing is opened or removed.
void ClaimPrivateFolder(const QString& folder);

/// The same checks without any change; one sentence for each problem. `owner` is the id of the folder's user;
/// nullopt (no such user on this machine) skips the checks of ownership.
QStringList PrivateFolderFaults(const QString& folder, std::optional<unsigned> owner);

}  // namespace platform
