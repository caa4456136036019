#include "faults/FaultFixture.h"

#include <sqlite3.h>

#include <QDir>
#include <QDirIterator>
#include <algorithm>
#include <iostream>

#include "inquiry/RowStoreProcedures.h"
#include "screen/msgお待ち.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kDiskFaults = std::to_array<DiskFault>({
    {"open", DiskOperation::Open},
    {"read", DiskOperation::Read},
    {"write", DiskOperation::Write},
    {"full", DiskOperation::Write, SQLITE_FULL},
    {"sync", DiskOperation::Sync},
    {"lock", DiskOperation::Lock},
    {"busy", DiskOperation::Lock, SQLITE_BUSY},
    {"delete", DiskOperation::Delete},
    {"answer to delete", DiskOperation::Delete, 0, true},
    {"anything", DiskOperation::Any},
});

Fault OnDisk(const DiskFault& fault, FaultyDisk::Lasting lasting, const QByteArray& part, bool mute) {
    const bool once = lasting == FaultyDisk::Lasting::Once;
    return {QString::fromLatin1(fault.name) + (once ? u" once"_s : u" from then on, "_s + QString::fromLatin1(part)),
            [=](int point) { FaultyDisk::Arm(fault, point, lasting, part); }, &FaultyDisk::Disarm, mute, 0};
}

/// Installed before any database is opened, since the engine does not accept another allocator later.
class FaultyMachine : public testing::Environment {
  public:
    void SetUp() override {
        FailingMemory::Install();
        FaultyDisk::Install();
    }
};
const auto* const kMachine = testing::AddGlobalTestEnvironment(new FaultyMachine);

bool IsDatabase(const QString& path) { return path.endsWith(u".accdb"_s); }

}  // namespace

FaultTest::FaultTest() {
    auto failing = std::make_unique<FailingFiles>();
    files = failing.get();
    platform::Services().files = std::move(failing);
    AddEras();
    for (const auto& [code, name] : {std::pair{u"00001"_s, u"山田　太郎"_s}, {u"00002"_s, u"佐藤　花子"_s}}) {
        installation.General().Execute(u"DELETE FROM M担当者 WHERE コード = "_s + SqlLiteral(code));
        installation.AddStaff(code,
                              {{u"氏名"_s, name}, {u"生年月日"_s, u"19800402"_s}, {u"入社日付"_s, u"20030401"_s}});
    }
    EndProgram();
}

FaultTest::~FaultTest() { EndProgram(); }

void FaultTest::KeepAsBeginning() {
    beginning_.clear();
    for (QDirIterator file(installation.Root(), QDir::Files, QDirIterator::Subdirectories); file.hasNext();) {
        const QString path = file.next();
        beginning_.insert(path, ReadBytes(path));
    }
}

void FaultTest::BackToBeginning() const {
    QDir(installation.Root() + u"/users"_s).removeRecursively();
    for (QDirIterator file(installation.Root(), QDir::Files, QDirIterator::Subdirectories); file.hasNext();) {
        const QString path = file.next();
        if (!beginning_.contains(path)) QFile::remove(path);
    }
    for (auto file = beginning_.cbegin(); file != beginning_.cend(); ++file)
        if (!QFile::exists(file.key()) || ReadBytes(file.key()) != file.value()) WriteBytes(file.key(), file.value());
}

void FaultTest::OpenConnections() {
    OpenConfigConnection(ConfigConnectionString(FileKind::Accdb, UserConfigDataSource()));
    Globals().ConfigConnectionOpen = true;
    OpenGeneralConnection();
    Globals().MainConnectionOpen = true;
}

void FaultTest::EndProgram() {
    UnloadWaitDialog();
    ProgramGlobals& globals = Globals();
    globals.ReportRecordset = database::Recordset();
    globals.ReportDatabase = database::Connection();
    globals.MainConnection = database::Connection();
    globals.ConfigConnection = database::Connection();
    globals.ConfigConnectionOpen = globals.MainConnectionOpen = false;
    globals.TextOutputFile.reset();
    globals.LinkWaiting = false;
    form.SetEnabled(true);
}

Outcome FaultTest::RunWork() {
    Outcome outcome;
    services.dialogs.shown.clear();
    try {
        Work();
    } catch (const platform::RuntimeError&) {
        outcome.raised = true;
    }
    outcome.messages = services.dialogs.Texts();
    return outcome;
}

void FaultTest::ExpectWholeDatabases() const {
    for (QDirIterator file(installation.Root(), QDir::Files, QDirIterator::Subdirectories); file.hasNext();) {
        const QString path = file.next();
        const bool untouched = !QFile::exists(path + u"-journal"_s) && beginning_.value(path) == ReadBytes(path);
        if (!IsDatabase(path) || untouched) continue;
        EXPECT_EQ(SampleFile(path).Value(u"PRAGMA integrity_check"_s), u"ok"_s) << path.toStdString();
    }
}

void FaultTest::TryPoint(const Fault& fault, int point, bool& fallen) {
    BackToBeginning();
    fault.arm(point);
    Outcome outcome = RunWork();
    EndProgram();
    fallen = fault.disarm();
    ExpectWholeDatabases();
    const auto errorRows = [this] {
        return QFile::exists(HistoryFile().Path())
                   ? HistoryFile().Rows(u"SELECT 摘要 FROM プログラム稼動履歴 WHERE 摘要 LIKE 'エラー %'"_s)
                   : QList<QStringList>();
    };
    const QList<QStringList> rows = errorRows();
    for (const QStringList& row : rows) outcome.errorRows << row.first();
    CheckBehindFault(!outcome.Told() && !(fallen && fault.mute));
    if (!fallen) return;
    const Outcome next = RunWork();
    EndProgram();
    ExpectWholeDatabases();
    EXPECT_FALSE(next.raised);
    EXPECT_EQ(next.messages, QStringList());
    EXPECT_EQ(errorRows().size(), rows.size());
    CheckBehindNextWork();
}

int FaultTest::NextPoint(const Fault& fault, int point) {
    constexpr int kFirst = 250, kLast = 150;
    const int last = fault.points - kLast;
    return fault.points == 0 || point < kFirst || point >= last ? point + 1 : std::min(point + 1 + point / 30, last);
}

void FaultTest::Try(const Fault& fault) {
    bool fallen = true;
    for (int point = 1; fallen; point = NextPoint(fault, point)) {
        TryPoint(fault, point, fallen);
        tried += fallen ? 1 : 0;
        if (HasFailure()) {
            ADD_FAILURE() << fault.name.toStdString() << ", point " << point;
            return;
        }
    }
}

int FaultTest::PrintTried() const {
    RecordProperty("fault_points", tried);
    std::cout << "fault points tried: " << tried << std::endl;
    return tried;
}

int FaultTest::FailOnce() {
    for (const DiskFault& fault : kDiskFaults) {
        if (HasFailure()) break;
        const int before = tried;
        Try(OnDisk(fault, FaultyDisk::Lasting::Once, {}, false));
        EXPECT_EQ(tried > before, AsksFor(fault.operation)) << fault.name;
    }
    return PrintTried();
}

int FaultTest::FailFromThenOn(const QByteArray& part) {
    constexpr auto kForGood = FaultyDisk::Lasting::FromThenOn;
    const bool mute = HistoryFile().Path().toUtf8().contains(part);
    for (const DiskFault& fault : kDiskFaults)
        // A file that stays busy costs the full busy timeout of five seconds at each statement.
        if (fault.code != SQLITE_BUSY && !HasFailure()) Try(OnDisk(fault, kForGood, part, mute));
    if (!HasFailure()) Try(OnDisk({"anything", DiskOperation::Any}, kForGood, {}, true));
    return PrintTried();
}

int FaultTest::RunOutOfMemory() {
    BackToBeginning();
    FailingMemory::Count();
    RunWork();
    EndProgram();
    Try({u"memory"_s, &FailingMemory::Arm, &FailingMemory::Disarm, false, FailingMemory::Counted()});
    return PrintTried();
}
