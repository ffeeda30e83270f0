#include "support/relay.h"

#include <QStringList>

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <atomic>
#include <deque>
#include <list>
#include <mutex>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace talvora::test {

using namespace Qt::StringLiterals;
using Clock = std::chrono::steady_clock;

namespace {

sockaddr_in loopback(quint16 port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int newSocket() {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0) {
        throw std::runtime_error("no socket");
    }
    return socket;
}

struct Piece {
    Clock::time_point due;
    QByteArray bytes;
};

/// One link: two sockets, and what is on its way from one to the other.
struct Link {
    std::array<int, 2> sockets{-1, -1};
    std::array<std::deque<Piece>, 2> onTheWay;  // [i] came from socket i
    bool over = false;

    void close() const {
        for (const int socket : sockets) {
            ::close(socket);
        }
    }
};

}  // namespace

class Relay::Loop {
 public:
    explicit Loop(quint16 target) : target_(target), listener_(newSocket()) {
        const int yes = 1;
        setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        sockaddr_in address = loopback(0);
        socklen_t size = sizeof address;
        constexpr int waiting = 64;
        if (bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
            listen(listener_, waiting) != 0 ||
            getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
            throw std::runtime_error("the relay cannot listen");
        }
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { serve(); });
    }

    ~Loop() {
        ended = true;
        thread_.join();
        ::close(listener_);
    }

    quint16 port() const { return port_; }

    QByteArray traffic() const {
        const std::lock_guard lock(mutex_);
        return traffic_;
    }

    std::atomic<qint64> delay{0};
    std::atomic<int> cuts{0};
    std::atomic<bool> down{false};
    std::atomic<bool> held{false};
    std::atomic<bool> ended{false};
    std::atomic<int> cutsDone{0};

 private:
    void serve() {
        while (!ended) {
            if (const int asked = cuts; down || asked != cutsDone) {
                dropAll();
                cutsDone = asked;
            }
            step();
        }
        dropAll();
    }

    void step() {
        std::vector<pollfd> polled;
        polled.push_back({listener_, POLLIN, 0});
        for (const Link& link : links_) {
            for (const int socket : link.sockets) {
                polled.push_back({socket, static_cast<short>(held ? 0 : POLLIN), 0});
            }
        }
        const bool waiting = std::any_of(links_.begin(), links_.end(), [](const Link& link) {
            return !link.onTheWay[0].empty() || !link.onTheWay[1].empty();
        });
        // Short steps while something waits for its time.
        timespec patience{0, waiting ? 50'000 : 2'000'000};
        ppoll(polled.data(), polled.size(), &patience, nullptr);
        std::size_t next = 1;
        for (Link& link : links_) {
            for (std::size_t side = 0; side < 2; ++side) {
                if (polled[next++].revents != 0 && !held) {
                    take(link, side);
                }
            }
            passOn(link);
        }
        links_.remove_if([](const Link& link) {
            if (link.over) {
                link.close();
            }
            return link.over;
        });
        if ((polled[0].revents & POLLIN) != 0) {
            accept();
        }
    }

    void accept() {
        Link link;
        link.sockets[0] = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (down) {
            ::close(link.sockets[0]);
            return;
        }
        link.sockets[1] = newSocket();
        sockaddr_in address = loopback(target_);
        if (connect(link.sockets[1], reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
            return link.close();
        }
        const int yes = 1;
        for (const int socket : link.sockets) {
            setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
        }
        links_.push_back(std::move(link));
    }

    void take(Link& link, std::size_t side) {
        constexpr qsizetype room = 65536;
        QByteArray bytes(room, Qt::Uninitialized);
        const auto count = recv(link.sockets[side], bytes.data(), static_cast<std::size_t>(room), MSG_DONTWAIT);
        if (count <= 0) {
            link.over = link.over || count == 0 || (errno != EAGAIN && errno != EINTR);
            return;
        }
        bytes.truncate(count);
        link.onTheWay[side].push_back({Clock::now() + std::chrono::milliseconds(delay), bytes});
        const std::lock_guard lock(mutex_);
        traffic_ += bytes;
    }

    void passOn(Link& link) const {
        for (std::size_t side = 0; side < 2; ++side) {
            auto& queue = link.onTheWay[side];
            while (!held && !queue.empty() && queue.front().due <= Clock::now()) {
                const QByteArray& bytes = queue.front().bytes;
                const auto sent = send(link.sockets[1 - side], bytes.constData(),
                                       static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
                link.over = link.over || sent != bytes.size();
                queue.pop_front();
            }
        }
    }

    void dropAll() {
        for (const Link& link : links_) {
            link.close();
        }
        links_.clear();
    }

    quint16 target_;
    int listener_;
    quint16 port_ = 0;
    std::list<Link> links_;
    QByteArray traffic_;
    mutable std::mutex mutex_;
    std::thread thread_;
};

Relay::Relay(const QString& target)
    : loop_(std::make_unique<Loop>(target.contains(u',') ? target.section(u',', -1).toUShort() : quint16{1433})) {}

Relay::~Relay() = default;

QString Relay::dataSource() const {
    return u"127.0.0.1,%1"_s.arg(loop_->port());
}

void Relay::setDelay(std::chrono::milliseconds delay) {
    loop_->delay = delay.count();
}

void Relay::cut() {
    const int wanted = ++loop_->cuts;
    while (loop_->cutsDone < wanted) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

void Relay::setDown(bool down) {
    loop_->down = down;
    cut();
}

void Relay::setHeld(bool held) {
    loop_->held = held;
}

QByteArray Relay::traffic() const {
    return loop_->traffic();
}

}  // namespace talvora::test
