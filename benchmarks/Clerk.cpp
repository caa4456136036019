// One clerk without a window, for scripts/clerks: searches, list windows, re-reads and now and then a registration, by
// the procedures of the programs, with time to think between them. Prints a line for each action: its kind, when it
// began (milliseconds since 1970), how long it took (milliseconds), and how many rows it gave.

#include <QApplication>
#include <QCommandLineParser>
#include <QDateTime>
#include <QElapsedTimer>
#include <QThread>
#include <cmath>
#include <cstdio>
#include <functional>
#include <random>

#include "data/Connections.h"
#include "data/Environment.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/StaffQuery.h"
#include "platform/Services.h"
#include "registration/StaffStore.h"
#include "selection/StaffListQuery.h"
#include "support/HeadForm.h"

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kTelephone = 7;  // place of 電話 in kStaffItems

struct Plan {
    QString configuration;  ///< copy of an installation's configuration file
    QString writeServer;    ///< サーバー名 for registrations; empty: that of the definition row
    double seconds = 0, think = 0;
    int people = 0;
    unsigned seed = 0;
};

class Clerk {
  public:
    explicit Clerk(const Plan& plan) : plan_(plan), random_(plan.seed) {}

    void Connect() {
        OpenConfigConnection(ConfigConnectionString(kAccdb, plan_.configuration));
        Globals().ConfigConnectionOpen = true;
        ReadGeneralDatabaseDefinition();
        OpenGeneralConnection();
        Globals().MainConnectionOpen = true;
        SetInitialConditions();
    }

    void Work() {
        const auto end = QDateTime::currentMSecsSinceEpoch() + static_cast<qint64>(plan_.seconds * 1000);
        Think(0, 1);
        for (int number = 1; QDateTime::currentMSecsSinceEpoch() < end; ++number) {
            Act(number);
            Think(0.5, 1.5);
        }
    }

  private:
    int Between(int first, int last) { return std::uniform_int_distribution(first, last)(random_); }

    void Think(double least, double most) {
        const double share = std::uniform_real_distribution(least, most)(random_);
        QThread::msleep(static_cast<unsigned long>(std::lround(plan_.think * share * 1000)));
    }

    QString Code(int number) const { return QString::number(number).rightJustified(5, u'0'); }

    /// Six of ten actions are searches; one of fifty is a registration.
    void Act(int number) {
        const int choice = Between(1, 50);
        if (number == 1 || choice <= 30) {
            Measure("search", [this] { return Search(); });
        } else if (choice <= 42) {
            Measure("look-up", [this] { return LookUp(); });
        } else if (choice <= 49) {
            Measure("re-read", [this] { return Reread(); });
        } else {
            Measure("registration", [this] { return Register(); });
        }
    }

    static void Measure(const char* kind, const std::function<int()>& action) {
        const auto began = QDateTime::currentMSecsSinceEpoch();
        QElapsedTimer timer;
        timer.start();
        const int rows = action();
        std::printf("%s\t%lld\t%.1f\t%d\n", kind, began, static_cast<double>(timer.nsecsElapsed()) / 1e6, rows);
        std::fflush(stdout);
    }

    /// By a family name, by a range of codes, or by section and position.
    int Search() {
        static const QStringList names{u"杉山"_s, u"小林"_s, u"山田"_s, u"酒井"_s, u"大野"_s, u"上田"_s, u"橋本"_s};
        ResetConditions();
        InquiryConditions& conditions = Globals().Conditions;
        const int choice = Between(1, 20);
        if (choice <= 9) {
            conditions.SearchName = names.at(Between(0, static_cast<int>(names.size()) - 1));
        } else if (choice <= 15) {
            const int first = Between(1, std::max(1, plan_.people - 200));
            conditions.StaffFrom = Code(first);
            conditions.StaffTo = Code(first + 199);
        } else {
            const int department = Between(1, 9) * 10;
            conditions.SectionFrom = conditions.SectionTo = QString::number(department + 1).rightJustified(3, u'0');
            conditions.PositionFrom = conditions.PositionTo = QString::number(Between(2, 9) * 10);
        }
        ResetRowStore();
        RunStaffSearch();
        return Globals().LastRow + 1;
    }

    /// The list window of the staff, by code or by kana.
    int LookUp() {
        StaffListConditions conditions;
        conditions.allEnrolments = conditions.allEmployees = 9;
        conditions.code = Code(Between(1, plan_.people));
        conditions.kana = u"ﾀ"_s;
        database::Recordset list;
        OpenRecordset(list, BuildStaffListQuery(Between(0, 1) == 0 ? kCodeSearch : kKanaSearch, conditions), false);
        int rows = 0;
        for (; list.IsOpen() && !list.AtEOF(); list.MoveNext()) ++rows;
        CloseQuietly(list);
        return rows;
    }

    int Reread() {
        if (Globals().LastRow < 0) return Search();
        const int before = Globals().LastRow;
        ReloadStaffRow(Between(0, std::min(before, 7)));
        return Globals().LastRow == before ? 1 : 0;
    }

    /// As the registration program: a connection for the change of one person.
    int Register() {
        const auto definition = Globals().GeneralDatabase;
        if (!plan_.writeServer.isEmpty()) Globals().GeneralDatabase.サーバー名 = plan_.writeServer;
        StaffStore store;
        StaffRecord person;
        bool done = store.Open() && store.Load(Code(Between(1, plan_.people)), person) == StoreOutcome::Done;
        if (done) {
            store.LogView(person.担当者コード, ViewKind::Looked);
            StaffValues values = person.values;
            values[kTelephone] = u"03-%1-%2"_s.arg(Between(1000, 9999)).arg(Between(1000, 9999));
            done = store.Save(person, values) == StoreOutcome::Done;
        }
        Globals().GeneralDatabase = definition;
        return done ? 1 : 0;
    }

    const Plan plan_;
    std::mt19937 random_;
};

Plan PlanOf(const QApplication& application) {
    QCommandLineParser parser;
    for (const auto* name : {"configuration", "write-server", "seconds", "think", "people", "seed"})
        parser.addOption({QString::fromLatin1(name), QString(), u"value"_s});
    parser.process(application);
    return {parser.value(u"configuration"_s),      parser.value(u"write-server"_s),
            parser.value(u"seconds"_s).toDouble(), parser.value(u"think"_s).toDouble(),
            parser.value(u"people"_s).toInt(),     parser.value(u"seed"_s).toUInt()};
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    HeadForm form;
    ProgramGlobals& globals = Globals();
    globals.MainForm = &form;
    globals.RowsPerPage = 8;
    globals.ScopeOfficeCode = u"000"_s;
    globals.ProgramId = u"要員名簿照会"_s;
    globals.UserId = u"clerk"_s;
    globals.Staff.LaunchingStaffCode = u"00001"_s;
    Clerk clerk(PlanOf(application));
    clerk.Connect();
    std::printf("connected\n");
    std::fflush(stdout);
    clerk.Work();
    // As the programs end: without the destructors.
    std::_Exit(0);
}
