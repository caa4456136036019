// Keys of messages between programs: the receiver finds the message by the key that was sent, and deletes it.

#include <QTemporaryDir>

#include "access/ProgramLinks.h"
#include "data/Connections.h"
#include "fuzz/FuzzInput.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
#include "setup/schema/DatabaseFileWriter.h"

using namespace Qt::StringLiterals;

namespace {

void OpenChannel() {
    static const QTemporaryDir folder;
    setup::WriteConfiguration(folder.filePath(u"usrcnfg.accdb"_s), {u"gnr"_s, FileKind::Accdb, 0, true});
    Globals().Layout.UserConfFolder = folder.path();
    Globals().Layout.ConfigDbKind = FileKind::Accdb;
    Require(ReconnectConfigConnection(), "the channel is there");
    Globals().ProgramId = u"receiver"_s;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool open = (OpenChannel(), true);
    Require(open, "the channel is open");
    const QString key = FuzzInput(data, size).Text();
    // Keys are passed on the command line, which ends at the first NUL.
    if (key.contains(QChar::Null)) return 0;
    SendStartLink(u"sender"_s, u"receiver"_s, key);
    ReceiveStartLink(key, u"00000000 000000"_s);
    Require(Globals().LinkSenderId == u"sender"_s, "the message is found by its key");
    Require(Globals().LinkStartInfo == key, "the key arrives as it was sent");
    ReceiveStartLink(key, u"00000000 000000"_s);
    Require(Globals().LinkSenderId.isEmpty(), "a message is taken once");
    return 0;
}
