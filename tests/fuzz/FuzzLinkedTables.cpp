// Connect strings of linked tables: paths survive a round trip.

#include "database/LinkedTables.h"
#include "fuzz/FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = FuzzInput(data, size).Text();
    const QString path = database::DatabaseOfConnectText(text);
    Require(path.size() <= text.size(), "a path is a piece of its text");
    for (const QString& any : {path, text.section(u';', 0, 0)})
        Require(database::DatabaseOfConnectText(database::ConnectTextOf(any)) == any, "a path survives");
    return 0;
}
