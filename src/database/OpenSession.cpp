#include <array>

#include "database/DatabaseSession.h"
#include "database/EndableSession.h"
#include "database/odbc/OdbcSession.h"
#include "database/sqlite/SqliteSession.h"

namespace database {
namespace {

using Opener = std::unique_ptr<DatabaseSession> (*)(const ConnectionRequest&);

struct Provider {
    QLatin1StringView prefix;  // the rest of the name is the provider's version
    Opener open;
};

const std::array<Provider, 2> kProviders = {{
    {QLatin1StringView("Microsoft.ACE.OLEDB"), &OpenSqliteSession},
    {QLatin1StringView("Microsoft.Jet.OLEDB"), &OpenSqliteSession},
}};

}  // namespace

std::unique_ptr<DatabaseSession> OpenSession(const ConnectionRequest& request) {
    for (const Provider& provider : kProviders)
        if (request.provider.startsWith(provider.prefix, Qt::CaseInsensitive))
            return std::make_unique<EndableSession>(provider.open(request));
    return std::make_unique<EndableSession>(OpenOdbcSession(request));
}

}  // namespace database
