// Processor time of waiting for another program of the suite, as a fraction of one core, compared with a loop that
// opens the same file, runs the same query and sleeps as long. Both run alternately for the same number of iterations.
// The wait repaints its window, so a real or virtual display is required.

#include <sqlite3.h>
#include <sys/resource.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>

#include "access/ProgramLinks.h"
#include "data/Connections.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
#include "screen/Form.h"
#include "setup/storage/Installer.h"
#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPasses = 200;
constexpr int kRounds = 3;
const QString kKey = u"00000012"_s;
const QString kSibling = u"要員台帳更新"_s;

double ProcessorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

struct Cost {
    double processor = 0, elapsed = 0;  // seconds

    template <typename Work>
    void Add(Work work) {
        const auto start = std::chrono::steady_clock::now();
        const double before = ProcessorSeconds();
        work();
        processor += ProcessorSeconds() - before;
        elapsed += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
    double Percent() const { return 100 * processor / elapsed; }
};

void UseInstallation(const QString& folder) {
    setup::InstallationRequest request;
    request.folder = folder;
    request.staff = 1;
    setup::MakeInstallation(request);
    ProgramGlobals& globals = Globals();
    globals.ProgramId = u"要員名簿照会"_s;
    globals.Layout.ConfigDbKind = FileKind::Accdb;
    globals.Layout.UserConfFolder = folder + u"/conf"_s;
    ReconnectConfigConnection();
}

void Answer() {
    ProgramGlobals& globals = Globals();
    globals.LinkSenderId = globals.ProgramId;
    globals.LinkStartInfo = kKey;
    globals.ProgramId = kSibling;
    WriteEndLink({});
    globals.ProgramId = globals.LinkSenderId;
}

void Wait() {
    int passes = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] {
        if (++passes == kPasses) Answer();
    });
    turn.start(0);
    WaitForLinkedProgram(kSibling, kKey, TimeStamp(QDateTime::currentDateTime()));
}

void BareLoop(const QByteArray& file) {
    for (int pass = 0; pass <= kPasses; ++pass) {
        sqlite3* handle = nullptr;
        sqlite3_stmt* look = nullptr;
        sqlite3_open_v2(file.constData(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        sqlite3_prepare_v2(handle,
                           "SELECT * FROM プログラム連携情報 WHERE 発信日時 >= '20261121 093015' AND"
                           " 発信プログラムID = '要員名簿照会' AND 受信プログラムID = '要員台帳更新' AND"
                           " 起動連携情報 = '00000012' AND 連携区分 = '99'",
                           -1, &look, nullptr);
        sqlite3_step(look);
        sqlite3_finalize(look);
        sqlite3_close(handle);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

}  // namespace

int main(int argc, char** argv) {
    platform::Services().system = std::make_unique<platform::LocalSystemInformation>(argc, argv);
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    UseInstallation(folder.filePath(u"suite"_s));
    Form form(u"form"_s);
    Globals().MainForm = &form;
    form.show();

    Cost wait, bare;
    for (int round = 0; round < kRounds; ++round) {
        wait.Add(Wait);
        bare.Add([&] { BareLoop((Globals().Layout.UserConfFolder + u"/usrcnfg.accdb"_s).toUtf8()); });
    }
    std::printf("wait for a sibling: %.2f %% of a core\nbare loop: %.2f %% of a core\nratio: %.2f (%d passes)\n",
                wait.Percent(), bare.Percent(), wait.processor / bare.processor, kRounds * kPasses);
    Globals().MainForm = nullptr;
    return 0;
}
