#include "TavixRecorder/Tests/SlowServer.h"

#include <arpa/inet.h>
#include <chrono>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace tavix::recorder::testing {

SlowServer::SlowServer(double delaySec, std::function<std::string(const std::string&)> answer)
    : delaySec_(delaySec), answer_(std::move(answer)) {
    listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (::bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0)
        throw std::system_error(errno, std::generic_category(), "bind");
    ::listen(listener_, 16);
    ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { accept(); });
}

SlowServer::~SlowServer() {
    isClosing_ = true;
    thread_.join();
    for (std::thread& connection : connections_) connection.join();
    ::close(listener_);
}

void SlowServer::accept() {
    while (!isClosing_) {
        pollfd ready{listener_, POLLIN, 0};
        if (::poll(&ready, 1, 20) <= 0) continue;
        const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) continue;
        ++visitors_;
        const std::scoped_lock lock(mutex_);
        connections_.emplace_back([this, connection] { serve(connection); });
    }
}

// One request a connection; a browser also opens some that it may need later.
void SlowServer::serve(int connection) {
    std::string request;
    while (!isClosing_ && request.find("\r\n\r\n") == std::string::npos) {
        pollfd ready{connection, POLLIN, 0};
        if (::poll(&ready, 1, 20) <= 0) continue;
        char bytes[4096];
        const ssize_t count = ::read(connection, bytes, sizeof bytes);
        if (count <= 0) break;
        request.append(bytes, static_cast<std::size_t>(count));
    }
    const std::size_t from = request.find(' ') + 1;
    if (from > 0 && !isClosing_) {
        std::this_thread::sleep_for(std::chrono::duration<double>(delaySec_));
        const std::string body = answer_(request.substr(from, request.find(' ', from) - from));
        const std::string reply = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n"
                                  "Content-Length: " +
                                  std::to_string(body.size()) + "\r\n\r\n" + body;
        ::send(connection, reply.data(), reply.size(), MSG_NOSIGNAL);
    }
    ::close(connection);
}

}   // namespace tavix::recorder::testing
