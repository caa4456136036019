// The first list from a server on loopback: the row store filled by the program's search, compared with the same
// statements in a minimal loop. Run by scripts/with-servers with MEIBO_TEST_ENGINE=PostgreSQL.

#include <malloc.h>

#include "BenchmarkProgram.h"
#include "FirstListProgram.h"
#include "OdbcBareLoop.h"
#include "PairedRuns.h"
#include "data/Catalogue.h"
#include "data/Connections.h"
#include "database/DatabaseSession.h"
#include "database/odbc/OdbcDrivers.h"
#include "database/odbc/ServerEngine.h"
#include "database/sql/StatementAdapter.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/StaffQuery.h"

using namespace Qt::StringLiterals;
using namespace first_list;

namespace {

OdbcBareLoop BareLoop() {
    const auto request = database::ParseConnectionString(*GeneralConnectionString(Globals().GeneralDatabase));
    return {database::OdbcConnectionText(request),
            database::AdaptStatement(BuildStaffStatement(), database::EngineOf(ServerDatabase::Engine()).dialect,
                                     SuiteTextRules())};
}

int Measure(int pairs, OdbcBareLoop& bare) {
    Load();
    bare.Run(kLauncher, true);
    if (!BothAreWhole(bare.RowCount())) return 1;
    const auto settle = [&] {
        ResetRowStore();
        bare.Clear();
        malloc_trim(0);
    };
    const PairedRuns runs(pairs, settle);
    const auto all = runs.Measure("first list of the program", Load, "the same statements by hand",
                                  [&] { bare.Run(kLauncher, true); });
    const auto list = runs.Measure("first list of the program", Load, "its one large statement by hand",
                                   [&] { bare.Run(kLauncher, false); });
    Globals().Staff.LaunchingStaffCode.clear();
    const auto withoutViews = runs.Measure("the program without the viewing log", Load,
                                           "its one large statement by hand", [&] { bare.Run(kLauncher, false); });
    std::printf("share of the small look-ups: by hand %.0f %%, in the program at most %.0f %% (viewing log %.0f ms)\n",
                100 * (1 - list.second / all.second), 100 * (1 - list.second / list.first),
                list.first - withoutViews.first);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const BenchmarkProgram program(argc, argv, 5);
    if (ServerDatabase::Engine() != u"PostgreSQL"_s) {
        std::fprintf(stderr, "run it as: MEIBO_TEST_ENGINE=PostgreSQL scripts/with-servers first-list-server\n");
        return 2;
    }
    StaffDatabase database;
    MakeStaff(database);
    database.General(u"ANALYZE"_s);
    HeadForm form;
    PrepareProgram(database, form);
    OdbcBareLoop bare = BareLoop();
    return Measure(program.Pairs(), bare);
}
