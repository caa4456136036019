// Connect texts of linked tables: the path that went in comes out.

#include "fuzz/FuzzInput.h"
#include "platform/LinkedTables.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = FuzzInput(data, size).Text();
    const QString path = platform::DatabaseOfConnectText(text);
    Require(path.size() <= text.size(), "a path is a piece of its text");
    if (!path.isEmpty())
        Require(platform::DatabaseOfConnectText(platform::ConnectTextOf(path)) == path, "a path survives");
    return 0;
}
