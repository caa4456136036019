#pragma once

#include <sys/types.h>

#include <QString>
#include <QStringList>
#include <optional>

namespace platform {

/// Makes a folder safe for the user who runs this: only that user may enter it from now on, and it is no link and
/// belongs to that user, and everything in it is a plain file or folder of that user or of the administrator. What
/// another user has placed there could lead writes into any file of this user. A missing folder is no failure.
/// RuntimeError, one sentence for each thing found; nothing of it is opened or removed.
void ClaimPrivateFolder(const QString& folder);

/// The same things as sentences, without changing anything; `owner` is the user that the folder is for, none where the
/// machine does not know that user and owners can't be judged.
QStringList PrivateFolderFaults(const QString& folder, std::optional<uid_t> owner);

}  // namespace platform
