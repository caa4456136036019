#include "servers/NetworkRelay.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <vector>

namespace {

sockaddr_in Loopback(quint16 port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

int NewSocket() { return ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0); }

sockaddr* AsAddress(sockaddr_in& address) { return reinterpret_cast<sockaddr*>(&address); }

void Reset(int socket) {
    const linger atOnce = {1, 0};
    ::setsockopt(socket, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    ::close(socket);
}

void PassOn(int from, int to) {
    std::array<char, 65536> bytes;
    const ssize_t count = ::recv(from, bytes.data(), bytes.size(), 0);
    if (count <= 0) ::shutdown(to, SHUT_WR);
    for (ssize_t sent = 0; sent < count;) {
        const ssize_t more = ::send(to, bytes.data() + sent, static_cast<size_t>(count - sent), MSG_NOSIGNAL);
        if (more <= 0) return;
        sent += more;
    }
}

/// The relay process.
class Relay {
  public:
    Relay(int listener, int control, quint16 serverPort)
        : listener_(listener), control_(control), serverPort_(serverPort) {}

    /// Runs until the control socket is closed.
    void Run() {
        while (Obey()) {
            std::vector<pollfd> sources = {{control_, POLLIN, 0}};
            if (passing_) AddSources(sources);
            if (::poll(sources.data(), sources.size(), -1) <= 0 || sources[0].revents != 0) continue;
            for (size_t i = 0; i + 1 < sources.size() / 2; ++i) {
                const auto [program, server] = pairs_[i];
                if (sources[2 * i + 2].revents != 0) PassOn(program, server);
                if (sources[2 * i + 3].revents != 0) PassOn(server, program);
            }
            if (sources[1].revents != 0) Accept();
        }
    }

  private:
    struct Pair {
        int program, server;
    };

    void AddSources(std::vector<pollfd>& sources) const {
        sources.push_back({listener_, POLLIN, 0});
        for (const auto& [program, server] : pairs_)
            for (const int end : {program, server}) sources.push_back({end, POLLIN, 0});
    }

    bool Obey() {
        char command = 0;
        const ssize_t told = ::recv(control_, &command, 1, MSG_DONTWAIT);
        if (told == 0) return false;
        if (told < 0) return true;
        passing_ = false;
        for (const auto& [program, server] : pairs_) {
            if (command != 'b') continue;
            Reset(program);
            Reset(server);
        }
        return ::send(control_, &command, 1, MSG_NOSIGNAL) == 1;
    }

    void Accept() {
        sockaddr_in address = Loopback(serverPort_);
        const Pair pair = {::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC), NewSocket()};
        if (::connect(pair.server, AsAddress(address), sizeof address) == 0) return pairs_.push_back(pair);
        ::close(pair.program);
        ::close(pair.server);
    }

    int listener_, control_;
    quint16 serverPort_;
    bool passing_ = true;
    std::vector<Pair> pairs_;
};

}  // namespace

NetworkRelay::NetworkRelay(const QString& server) {
    const int listener = NewSocket();
    std::array<int, 2> ends = {};
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof address;
    if (::bind(listener, AsAddress(address), size) != 0 || ::listen(listener, 8) != 0 ||
        ::getsockname(listener, AsAddress(address), &size) != 0 ||
        ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::runtime_error("no port for the relay");
    port_ = ntohs(address.sin_port);
    control_ = ends[0];
    process_ = ::fork();
    if (process_ == 0) {
        ::close(ends[0]);
        Relay(listener, ends[1], server.section(u':', -1).toUShort()).Run();
        ::_exit(0);
    }
    ::close(listener);
    ::close(ends[1]);
}

NetworkRelay::~NetworkRelay() {
    ::close(control_);
    ::waitpid(process_, nullptr, 0);
}

QString NetworkRelay::Address() const { return QStringLiteral("127.0.0.1:%1").arg(port_); }

void NetworkRelay::Tell(char command) const {
    char done = 0;
    if (::send(control_, &command, 1, MSG_NOSIGNAL) != 1 || ::recv(control_, &done, 1, 0) != 1)
        throw std::runtime_error("the relay is gone");
}
