// The first list: the row store reset and filled by the program's own search, against the same list by hand.

#include <malloc.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>

#include "FirstListBareLoop.h"
#include "PairedRuns.h"
#include "frame/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/HeadForm.h"
#include "inquiry/RowStoreProcedures.h"
#include "inquiry/StaffDatabase.h"
#include "inquiry/StaffQuery.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int kMatching = 32'753;  // a full store with eight rows on the screen
constexpr int kHaveLeft = 1'247;
const QString kLauncher = u"00001"_s;

void MakeStaff(StaffDatabase& database) {
    database.AddManyStaff(kMatching + kHaveLeft);
    database.General(u"UPDATE M担当者 SET 在籍区分 = '1' WHERE コード > '"_s + QString::number(kMatching) + u'\'');
}

void PrepareProgram(const StaffDatabase& database, HeadForm& form) {
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

/// Largest resident size so far, in MiB.
double PeakMemory() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:")) return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

/// One run of one side alone, for counting instructions.
int RunOne(const QString& side, FirstListBareLoop& bare) {
    if (side == u"program"_s) {
        LoadFirstList();
    } else {
        bare.Run(kLauncher);
    }
    std::printf("first list, %s alone: %d rows, peak memory %.0f MiB\n", qUtf8Printable(side),
                side == u"program"_s ? Globals().LastRow + 1 : bare.RowCount(), PeakMemory());
    return 0;
}

int RunInPairs(int pairs, FirstListBareLoop& bare) {
    LoadFirstList();
    const double memory = PeakMemory();
    bare.Run(kLauncher);
    if (Globals().LastRow + 1 != kMatching || bare.RowCount() != kMatching) {
        std::fprintf(stderr, "the two lists differ: %d and %d rows\n", Globals().LastRow + 1, bare.RowCount());
        return 1;
    }
    // A first list begins with empty stores, and neither side is to tidy up the memory that the other one left.
    const auto settle = [&] {
        ResetRowStore();
        bare.Clear();
        malloc_trim(0);
    };
    PairedRuns(pairs, settle).Measure("first list of the program", LoadFirstList, "first list by hand", [&] {
        bare.Run(kLauncher);
    });
    std::printf("%d rows, peak memory of the program %.0f MiB\n", kMatching, memory);
    return 0;
}
}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption pairs(u"pairs"_s, u"Number of pairs."_s, u"N"_s, u"15"_s);
    const QCommandLineOption only(u"only"_s, u"Run one side once: program or bare."_s, u"SIDE"_s);
    parser.addOptions({pairs, only});
    parser.addHelpOption();
    parser.process(application);

    StaffDatabase database;
    MakeStaff(database);
    HeadForm form;
    PrepareProgram(database, form);
    FirstListBareLoop bare(database.GeneralPath());
    return parser.isSet(only) ? RunOne(parser.value(only), bare) : RunInPairs(parser.value(pairs).toInt(), bare);
}
