// The first list from a server on loopback: the row store filled by the program's own search, against the same
// statements by hand. Run by scripts/with-servers with MEIBO_TEST_ENGINE=PostgreSQL.

#include <malloc.h>

#include <QApplication>
#include <QCommandLineParser>

#include "OdbcBareLoop.h"
#include "PairedRuns.h"
#include "data/Catalogue.h"
#include "data/Connections.h"
#include "frame/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/HeadForm.h"
#include "inquiry/RowStoreProcedures.h"
#include "inquiry/StaffDatabase.h"
#include "inquiry/StaffQuery.h"
#include "platform/database/ConnectionString.h"
#include "platform/database/OdbcDrivers.h"
#include "platform/database/ServerEngine.h"
#include "platform/database/StatementAdapter.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kMatching = 32'753;  // a full store with eight rows on the screen
constexpr int kHaveLeft = 1'247;
const QString kLauncher = u"00001"_s;

void PrepareProgram(StaffDatabase& database, HeadForm& form) {
    database.AddManyStaff(kMatching + kHaveLeft);
    database.General(u"UPDATE M担当者 SET 在籍区分 = '1' WHERE コード > '"_s + QString::number(kMatching) + u'\'');
    database.General(u"ANALYZE"_s);
    Globals().MainForm = &form;
    Globals().RowsPerPage = 8;
    Globals().ScopeOfficeCode = u"000"_s;
    Globals().ProgramId = u"要員名簿照会"_s;
    Globals().Staff.LaunchingStaffCode = kLauncher;
    SetInitialConditions();
    database.OpenConnections();
}

void LoadFirstList() {
    ResetRowStore();
    RunStaffSearch();
}

OdbcBareLoop BareLoop() {
    const auto request = platform::ParseConnectionString(*GeneralConnectionString(Globals().GeneralDatabase));
    return {platform::OdbcConnectionText(request),
            platform::AdaptStatement(BuildStaffStatement(), platform::EngineOf(ServerDatabase::Engine()).differences,
                                     SuiteTextRules())};
}

int Measure(int pairs, OdbcBareLoop& bare) {
    LoadFirstList();
    bare.Run(kLauncher, true);
    if (Globals().LastRow + 1 != kMatching || bare.RowCount() != kMatching) {
        std::fprintf(stderr, "the two lists differ: %d and %d rows\n", Globals().LastRow + 1, bare.RowCount());
        return 1;
    }
    const auto settle = [&] {
        ResetRowStore();
        bare.Clear();
        malloc_trim(0);
    };
    const PairedRuns runs(pairs, settle);
    const auto all = runs.Measure("first list of the program", LoadFirstList, "the same statements by hand",
                                  [&] { bare.Run(kLauncher, true); });
    const auto list = runs.Measure("first list of the program", LoadFirstList, "its one large statement by hand",
                                   [&] { bare.Run(kLauncher, false); });
    Globals().Staff.LaunchingStaffCode.clear();
    const auto withoutViews = runs.Measure("the program without the viewing log", LoadFirstList,
                                           "its one large statement by hand", [&] { bare.Run(kLauncher, false); });
    std::printf("share of the small look-ups: by hand %.0f %%, in the program at most %.0f %% (viewing log %.0f ms)\n",
                100 * (1 - list.second / all.second), 100 * (1 - list.second / list.first),
                list.first - withoutViews.first);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption pairs(u"pairs"_s, u"Number of pairs."_s, u"N"_s, u"5"_s);
    parser.addOption(pairs);
    parser.addHelpOption();
    parser.process(application);
    if (ServerDatabase::Engine() != u"PostgreSQL"_s) {
        std::fprintf(stderr, "run it as: MEIBO_TEST_ENGINE=PostgreSQL scripts/with-servers first-list-server\n");
        return 2;
    }
    StaffDatabase database;
    HeadForm form;
    PrepareProgram(database, form);
    OdbcBareLoop bare = BareLoop();
    return Measure(parser.value(pairs).toInt(), bare);
}
