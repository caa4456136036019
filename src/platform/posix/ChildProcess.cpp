#include "platform/posix/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>

#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QSocketNotifier>
#include <csignal>
#include <utility>
#include <vector>

#include "platform/ProcessService.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

/// NUL-terminated pointer array for exec; valid as long as the object.
class TextVector {
  public:
    void Add(QByteArray text) { texts_.append(std::move(text)); }
    char* const* Pointers() {
        pointers_.clear();
        for (QByteArray& text : texts_) pointers_.push_back(text.data());
        pointers_.push_back(nullptr);
        return pointers_.data();
    }

  private:
    QByteArrayList texts_;
    std::vector<char*> pointers_;
};

TextVector Environment(bool hidden) {
    const QByteArray mark = QByteArray(kStartHiddenVariable) + '=';
    TextVector environment;
    for (char** variable = environ; *variable != nullptr; ++variable)
        if (!QByteArrayView(*variable).startsWith(mark)) environment.Add(*variable);
    if (hidden) environment.Add(mark + '1');
    return environment;
}

/// RAII wrapper of the posix_spawn attributes and file actions.
class SpawnSettings {
  public:
    SpawnSettings() {
        posix_spawnattr_init(&attributes);
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    }
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    posix_spawnattr_t attributes;
    posix_spawn_file_actions_t actions;
};

/// Ends of the children that have not been reaped.
QHash<pid_t, std::shared_ptr<ProcessEnd>>& Children() {
    static QHash<pid_t, std::shared_ptr<ProcessEnd>> children;
    return children;
}

/// Without this, a child that has ended stays a zombie until this program ends.
void ReapWhenEnded(pid_t child) {
    if (QCoreApplication::instance() == nullptr) return;
    const int descriptor = ::pidfd_open(child, 0);
    if (descriptor < 0) return;
    const auto end = std::make_shared<ProcessEnd>();
    Children().insert(child, end);
    WatchForEnd(descriptor, [descriptor, child, end] {
        HasEnded(descriptor, *end);
        // The id may now be reused for another process.
        Children().remove(child);
        ::close(descriptor);
    });
}

}  // namespace

int StartChild(const QString& program, const QStringList& arguments, bool hidden) {
    TextVector words;
    words.Add(QFile::encodeName(program));
    for (const QString& argument : arguments) words.Add(argument.toLocal8Bit());
    TextVector environment = Environment(hidden);
    SpawnSettings settings;
    pid_t child = 0;
    if (::posix_spawn(&child, QFile::encodeName(program).constData(), &settings.actions, &settings.attributes,
                      words.Pointers(), environment.Pointers()) != 0)
        return 0;
    ReapWhenEnded(child);
    return child;
}

QSocketNotifier* WatchForEnd(int processDescriptor, std::function<void()> ended) {
    if (QCoreApplication::instance() == nullptr) return nullptr;
    auto* notifier = new QSocketNotifier(processDescriptor, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier, ended = std::move(ended)] {
        notifier->setEnabled(false);
        notifier->deleteLater();
        ended();
    });
    return notifier;
}

std::shared_ptr<ProcessEnd> EndOfProcess(quint32 processId) {
    const auto child = Children().constFind(static_cast<pid_t>(processId));
    return child == Children().cend() ? std::make_shared<ProcessEnd>() : *child;
}

bool HasEnded(int processDescriptor, ProcessEnd& end) {
    if (end.known) return true;
    siginfo_t status{};
    const int result = ::waitid(P_PIDFD, static_cast<id_t>(processDescriptor), &status, WEXITED | WNOHANG);
    if (result == 0) {
        if (status.si_pid != 0) end = {true, static_cast<quint32>(status.si_status)};
        return end.known;
    }
    // Not our child: only poll on the pidfd can report the end, without an exit code.
    pollfd poll{processDescriptor, POLLIN, 0};
    end.known = ::poll(&poll, 1, 0) == 1;
    return end.known;
}

}  // namespace platform
