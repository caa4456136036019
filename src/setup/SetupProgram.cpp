#include <QCoreApplication>
#include <QTextStream>
#include <QThread>
#include <atomic>
#include <csignal>
#include <cstdio>

#include "setup/Commands.h"

namespace {

std::atomic_bool interrupted = false;
static_assert(std::atomic_bool::is_always_lock_free, "a signal handler writes it");

void Interrupt(int) { interrupted = true; }

bool WaitForMore() {
    constexpr unsigned long kLookMilliseconds = 300;
    if (!interrupted) QThread::msleep(kLookMilliseconds);
    return !interrupted;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    std::signal(SIGINT, Interrupt);
    std::signal(SIGTERM, Interrupt);
    QTextStream out(stdout), err(stderr);
    return setup::RunSetup(QCoreApplication::arguments().mid(1),
                           {out, err, QCoreApplication::applicationDirPath(), WaitForMore});
}
