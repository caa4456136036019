// The first list: the row store reset and filled by the program's search, compared with a minimal loop.

#include <malloc.h>

#include <QFile>

#include "BenchmarkProgram.h"
#include "FirstListBareLoop.h"
#include "FirstListProgram.h"
#include "PairedRuns.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/StaffQuery.h"

using namespace Qt::StringLiterals;
using namespace first_list;

namespace {
/// Peak resident memory in MiB.
double PeakMemory() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:")) return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

/// Runs one side once, to count its instructions.
int RunOne(const QString& side, FirstListBareLoop& bare, FirstListLimit& limit) {
    int rows = 0;
    if (side == u"program"_s) {
        Load();
        rows = Globals().LastRow + 1;
    } else if (side == u"limit"_s) {
        limit.Run(kLauncher);
        rows = limit.RowCount();
    } else {
        bare.Run(kLauncher);
        rows = bare.RowCount();
    }
    std::printf("first list, %s alone: %d rows, peak memory %.0f MiB\n", qUtf8Printable(side), rows, PeakMemory());
    return 0;
}

int RunInPairs(int pairs, FirstListBareLoop& bare, FirstListLimit& limit) {
    Load();
    const double memory = PeakMemory();
    bare.Run(kLauncher);
    limit.Run(kLauncher);
    if (!BothAreWhole(bare.RowCount()) || !BothAreWhole(limit.RowCount())) return 1;
    // All sides start empty, and none must free memory of another while it is measured.
    const PairedRuns runs(pairs, [&] {
        ResetRowStore();
        bare.Clear();
        limit.Clear();
        malloc_trim(0);
    });
    runs.Measure("first list of the program", Load, "first list by hand", [&] { bare.Run(kLauncher); });
    runs.Measure("first list of the program", Load, "limit of the engine", [&] { limit.Run(kLauncher); });
    std::printf("%d rows, peak memory of the program %.0f MiB\n", kMatching, memory);
    return 0;
}
}  // namespace

int main(int argc, char** argv) {
    const QCommandLineOption only(u"only"_s, u"Run one side once: program, bare or limit."_s, u"SIDE"_s);
    const BenchmarkProgram program(argc, argv, 15, {only});
    StaffDatabase database;
    MakeStaff(database);
    HeadForm form;
    PrepareProgram(database, form);
    FirstListBareLoop bare(database.GeneralPath());
    FirstListLimit limit(database.GeneralPath());
    const QString side = program.Arguments().value(only);
    return side.isEmpty() ? RunInPairs(program.Pairs(), bare, limit) : RunOne(side, bare, limit);
}
