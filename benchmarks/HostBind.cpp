// Time from starting a report host until it accepts connections, compared with a process that only listens on a socket:
// on an idle machine, and with all cores busy. A program connects to the host once, 400 ms after starting it.

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>
#include <vector>

#include "platform/ProcessService.h"
#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"
#include "platform/report-host/HostMessages.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kStarts = 50;
constexpr int kAllowance = 400;  // milliseconds
using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

sockaddr_un AddressOf(const QByteArray& name) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.constData(), static_cast<size_t>(name.size()));
    return address;
}

bool CanConnect(const QByteArray& name) {
    const sockaddr_un address = AddressOf(name);
    const int caller = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool reached = ::connect(caller, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(caller);
    return reached;
}

/// Keeps all cores busy during its lifetime.
class Load {
  public:
    explicit Load(unsigned threads) {
        for (unsigned i = 0; i < threads; ++i)
            threads_.emplace_back([this] {
                while (!done_) continue;
            });
    }
    ~Load() {
        done_ = true;
        for (std::thread& thread : threads_) thread.join();
    }

  private:
    std::atomic_bool done_ = false;
    std::vector<std::thread> threads_;
};

struct Figures {
    int boundAtOnce = 0;            ///< of kStarts, connected at 400 ms
    std::vector<double> hostTimes;  ///< from start to first connection
    std::vector<double> bareTimes;
};

/// As the suite does: start hidden, wait 400 ms, connect once, quit, kill.
bool BoundAtOnce(const QString& host, const QString& forms) {
    platform::LocalProcessService processes;
    const quint32 handle = processes.OpenProcess(0x100001, false, processes.StartHidden(host, {forms, u"/runtime"_s}));
    std::this_thread::sleep_for(std::chrono::milliseconds(kAllowance));
    bool bound = true;
    try {
        platform::LocalReportHostLink().Bind(forms)->Quit();
    } catch (const platform::RuntimeError&) {
        bound = false;
    }
    processes.TerminateProcess(handle, 0);
    processes.CloseHandle(handle);
    return bound;
}

double TimeToConnect(const QString& program, const QStringList& arguments, const QByteArray& name) {
    platform::LocalProcessService processes;
    ::unlink(name.constData());
    const auto start = Clock::now();
    const quint32 handle = processes.OpenProcess(0x100001, false, processes.StartHidden(program, arguments));
    while (!CanConnect(name) && MillisecondsSince(start) < 5000)
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    const double time = MillisecondsSince(start);
    processes.TerminateProcess(handle, 0);
    processes.CloseHandle(handle);
    return time;
}

Figures Measure(const QString& host, const QString& self, const QString& folder, const QByteArray& hostName) {
    const QString forms = folder + u"/repfrmdb.accdb"_s;
    const QByteArray bareName = (folder + u"/bare"_s).toUtf8();
    Figures figures;
    for (int i = 0; i < kStarts; ++i) {
        figures.boundAtOnce += BoundAtOnce(host, forms) ? 1 : 0;
        figures.hostTimes.push_back(TimeToConnect(host, {forms, u"/runtime"_s}, hostName));
        figures.bareTimes.push_back(TimeToConnect(self, {u"--listen"_s, QString::fromUtf8(bareName)}, bareName));
    }
    return figures;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Print(const char* when, const Figures& figures) {
    const double host = Median(figures.hostTimes), bare = Median(figures.bareTimes);
    double load = 0;  // one-minute average, including this program
    ::getloadavg(&load, 1);
    std::printf("%s (load of the machine %.1f): bound at the first try after %d ms in %d of %d starts\n", when, load,
                kAllowance, figures.boundAtOnce, kStarts);
    std::printf("  to the first connection: host %.1f ms (worst %.1f), bare listener %.1f ms, ratio %.2f\n", host,
                *std::max_element(figures.hostTimes.begin(), figures.hostTimes.end()), bare, host / bare);
}

int ListenBarely(const char* name) {
    const sockaddr_un address = AddressOf(name);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    if (::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 || ::listen(socket, 1) != 0)
        return 1;
    return ::pause();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--listen") == 0) return ListenBarely(argv[2]);
    if (argc != 2) {
        std::fprintf(stderr, "usage: host-bind REPORT-HOST\n");
        return 2;
    }
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder(u"/tmp/host-bind-XXXXXX"_s);
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    QFile forms(folder.filePath(u"repfrmdb.accdb"_s));
    if (!forms.open(QIODevice::WriteOnly)) return 1;
    const QByteArray hostName = platform::HostSocketPath(forms.fileName()).toUtf8();
    const QString host = QDir::current().absoluteFilePath(QString::fromLocal8Bit(argv[1]));
    const QString self = QCoreApplication::applicationFilePath();
    Print("idle", Measure(host, self, folder.path(), hostName));
    const Load load(std::max(2U, std::thread::hardware_concurrency()));
    Print("all cores busy", Measure(host, self, folder.path(), hostName));
    return 0;
}
