#include "tests/support/slowline.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <QtGlobal>

namespace {

constexpr int lookAgainMilliseconds = 50;

sockaddr_in localPort(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<quint16>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// False when the line is cut.
bool handOn(int from, int to) {
    std::array<char, 16384> bytes{};
    const auto received = recv(from, bytes.data(), bytes.size(), 0);
    for (ssize_t sent = 0; sent < received;) {
        const auto more = send(to, bytes.data() + sent, static_cast<std::size_t>(received - sent), MSG_NOSIGNAL);
        if (more <= 0)
            return false;
        sent += more;
    }
    return received > 0;
}

}  // namespace

SlowLine::SlowLine(int port, int millisecondsPerTrip) : serverPort_(port), delay_(millisecondsPerTrip) {
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = localPort(0);
    socklen_t size = sizeof(address);
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, plain, size) != 0 || listen(listener_, 4) != 0 || getsockname(listener_, plain, &size) != 0)
        qFatal("No port for the slow line.");
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
}

SlowLine::~SlowLine() {
    ending_ = true;
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    for (std::thread& call : calls_)
        call.join();
    close(listener_);
}

void SlowLine::serve() {
    for (int caller = 0; (caller = accept(listener_, nullptr, nullptr)) >= 0;)
        calls_.emplace_back([this, caller] { converse(caller); });
}

void SlowLine::converse(int caller) {
    const int server = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = localPort(serverPort_);
    bool open = connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    bool answered = true;
    while (open && !ending_) {
        std::array<pollfd, 2> ends{pollfd{caller, POLLIN, 0}, pollfd{server, POLLIN, 0}};
        poll(ends.data(), ends.size(), lookAgainMilliseconds);
        if (ends[0].revents != 0) {
            // A question of several packets is on its way once.
            if (std::exchange(answered, false)) {
                ++trips_;
                std::this_thread::sleep_for(std::chrono::milliseconds(delay_));
            }
            open = handOn(caller, server);
        }
        if (open && ends[1].revents != 0) {
            answered = true;
            open = handOn(server, caller);
        }
    }
    close(server);
    close(caller);
}
