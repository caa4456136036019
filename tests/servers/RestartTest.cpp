// Stops and starts the server, so it must not run in parallel with other tests.

#include <cstdlib>

#include "inquiry/StaffQuery.h"
#include "servers/ServerFixture.h"

using namespace Qt::StringLiterals;

namespace {

class ServerRestart : public OnServer {
  protected:
    static int Control(const QByteArray& action) {
        const QByteArray program =
            qgetenv(IsPostgres() ? "MEIBO_TEST_POSTGRESQL_CONTROL" : "MEIBO_TEST_MARIADB_CONTROL");
        return std::system(("bash '" + program + "' " + action + " >/dev/null").constData());
    }
};

}  // namespace

TEST_F(ServerRestart, EachSearchFailsUntilTheProgramIsStartedAnew) {
    ASSERT_TRUE(OpenGeneral());
    ASSERT_FALSE(Search().isEmpty());
    ASSERT_EQ(Control("stop"), 0);
    for (int i = 0; i < 2; ++i) {
        const qsizetype rows = History().size();
        EXPECT_EQ(Search(), QStringList());
        ASSERT_EQ(History().size(), rows + 1);
        EXPECT_TRUE(LastHistory().endsWith(BuildStaffStatement().replace(u"'"_s, u"''"_s)));
    }
    EXPECT_FALSE(OpenGeneral());
    EXPECT_TRUE(LastHistory().startsWith(u"エラー DB_OPEN ERROR-"_s)) << LastHistory().toStdString();
    Globals().MainConnection = database::Connection();
    ASSERT_EQ(Control("start"), 0);
    EXPECT_EQ(Search(), QStringList());
    EXPECT_TRUE(OpenGeneral());
    EXPECT_FALSE(Search().isEmpty());
}
