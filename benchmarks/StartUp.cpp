// Time from exec of the program to the painted first list, with warm caches, and its peak memory with a full row store.
// Requires a display.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

struct Run {
    double milliseconds;  // from fork to the output line rows=
    double mebibytes;     // peak resident memory
    int rows;
};

/// Starts the program in screenshot mode, reads its output line and waits for its exit.
Run RunOnce(const QByteArray& program) {
    int ends[2];
    if (pipe(ends) != 0) std::abort();
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        setenv("MEIBO_PICTURE", "/dev/null", 1);
        execl(program.constData(), program.constData(), static_cast<char*>(nullptr));
        _exit(127);
    }
    close(ends[1]);
    FILE* output = fdopen(ends[0], "r");
    Run run{0, 0, -1};
    if (std::fscanf(output, "rows=%d", &run.rows) != 1) run.rows = -1;
    run.milliseconds = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    std::fclose(output);
    rusage usage{};
    int status = 0;
    wait4(child, &status, 0, &usage);
    run.mebibytes = static_cast<double>(usage.ru_maxrss) / 1024.0;
    return run;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Report(const QString& setup, int staff, int runs) {
    QTemporaryDir folder;
    const QString installation = folder.filePath(QStringLiteral("sample"));
    QProcess::execute(setup, {QStringLiteral("init"), installation, QStringLiteral("--staff"), QString::number(staff)});
    const QByteArray program = (installation + QStringLiteral("/prgbin/要員名簿照会")).toUtf8();
    std::vector<double> times, memory;
    int rows = RunOnce(program).rows;  // warms the caches
    for (int i = 0; i < runs; ++i) {
        const Run run = RunOnce(program);
        times.push_back(run.milliseconds);
        memory.push_back(run.mebibytes);
    }
    std::printf(
        "start with %d staff (%d in the list): first list painted after %.0f ms, peak memory %.1f MiB "
        "(medians of %d)\n",
        staff, rows, Median(times), Median(memory), runs);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: start-up SUITE-SETUP\n");
        return 2;
    }
    const QString setup = QDir::current().absoluteFilePath(QString::fromLocal8Bit(argv[1]));
    Report(setup, 300, 9);
    Report(setup, 36000, 3);
    return 0;
}
