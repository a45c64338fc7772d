#include "tests/support/FaultServer.hpp"

#include "tests/support/Listener.hpp"

#include <poll.h>
#include <strings.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

namespace quorin::support {
namespace {

/// Reads whole requests off a connection.
class Reader {
public:
    explicit Reader(int socket) : socket_(socket) {}

    std::optional<ReceivedRequest> next() {
        std::size_t end = 0;
        while ((end = buffer_.find("\r\n\r\n")) == std::string::npos) {
            if (!more()) return std::nullopt;
        }
        ReceivedRequest request = parsed(buffer_.substr(0, end + 2));
        buffer_.erase(0, end + 4);
        const std::size_t length = std::strtoull(request.header("Content-Length").value_or("0").c_str(), nullptr, 10);
        buffer_.reserve(length);
        while (buffer_.size() < length) {
            if (!more()) return std::nullopt;
        }
        request.body = buffer_.substr(0, length);
        buffer_.erase(0, length);
        return request;
    }

private:
    bool more() {
        static thread_local char piece[64 * 1024];
        const ssize_t count = recv(socket_, piece, sizeof piece, 0);
        if (count > 0) buffer_.append(piece, static_cast<std::size_t>(count));
        return count > 0;
    }

    static ReceivedRequest parsed(const std::string& head) {
        ReceivedRequest request;
        std::size_t start = head.find("\r\n");
        const std::string line = head.substr(0, start);
        request.method = line.substr(0, line.find(' '));
        request.target = line.substr(request.method.size() + 1, line.rfind(' ') - request.method.size() - 1);
        for (start += 2; start < head.size(); start = head.find("\r\n", start) + 2) {
            const std::string field = head.substr(start, head.find("\r\n", start) - start);
            const auto colon = field.find(':');
            const auto value = field.find_first_not_of(' ', colon + 1);
            request.headers.emplace_back(field.substr(0, colon),
                                         value == std::string::npos ? std::string() : field.substr(value));
        }
        return request;
    }

    int socket_;
    std::string buffer_{};
};

FaultServer::Handler fromAnswers(std::map<std::string, std::string> answers) {
    return [answers = std::move(answers)](const ReceivedRequest& request, Connection& connection) {
        const auto known = answers.find(request.target);
        connection.send(known == answers.end() ? answer(404) : known->second);
        connection.close();
    };
}

}  // namespace

std::optional<std::string> ReceivedRequest::header(std::string_view name) const {
    for (const auto& [known, value] : headers) {
        if (strcasecmp(known.c_str(), std::string(name).c_str()) == 0) return value;
    }
    return std::nullopt;
}

bool Connection::send(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void Connection::reset() {
    const linger none{.l_onoff = 1, .l_linger = 0};
    setsockopt(socket_, SOL_SOCKET, SO_LINGER, &none, sizeof none);
    close();
}

bool Connection::isClosedByClient(int milliseconds) const {
    pollfd closed{.fd = socket_, .events = POLLRDHUP, .revents = 0};
    return poll(&closed, 1, milliseconds) > 0;
}

FaultServer::FaultServer(Handler handler) : handler_(std::move(handler)) {
    const Listener listener = listenOnFreePort();
    listener_ = listener.socket;
    port_ = listener.port;
    acceptor_ = std::thread([this] { acceptAll(); });
}

FaultServer::FaultServer(std::map<std::string, std::string> answers) : FaultServer(fromAnswers(std::move(answers))) {}

FaultServer::~FaultServer() {
    shutdown(listener_, SHUT_RDWR);
    acceptor_.join();
    {
        const std::lock_guard lock(mutex_);
        for (const int socket : sockets_) shutdown(socket, SHUT_RDWR);
    }
    for (std::thread& connection : connections_) connection.join();
    ::close(listener_);
}

std::string FaultServer::url(std::string_view target) const {
    return "http://127.0.0.1:" + std::to_string(port_) + std::string(target);
}

std::vector<ReceivedRequest> FaultServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

int FaultServer::acceptedConnections() const {
    const std::lock_guard lock(mutex_);
    return static_cast<int>(connections_.size());
}

bool FaultServer::waitForRequests(std::size_t count) const {
    std::unique_lock lock(mutex_);
    return arrived_.wait_for(lock, std::chrono::seconds(10), [&] { return requests_.size() >= count; });
}

void FaultServer::acceptAll() {
    for (;;) {
        const int socket = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (socket < 0) return;
        const std::lock_guard lock(mutex_);
        sockets_.push_back(socket);
        connections_.emplace_back([this, socket] { serve(socket); });
    }
}

void FaultServer::serve(int socket) {
    Reader reader(socket);
    Connection connection(socket);
    while (connection.isOpen()) {
        const auto request = reader.next();
        if (!request) break;
        {
            const std::lock_guard lock(mutex_);
            requests_.push_back(*request);
        }
        arrived_.notify_all();
        handler_(*request, connection);
    }
    const std::lock_guard lock(mutex_);
    std::erase(sockets_, socket);
    ::close(socket);
}

std::string answer(int status, std::string_view body, std::string_view headers) {
    std::string bytes = "HTTP/1.1 " + std::to_string(status) + " Some Reason\r\n";
    bytes.append(headers).append("Content-Length: ").append(std::to_string(body.size())).append("\r\n\r\n");
    return bytes.append(body);
}

}  // namespace quorin::support
