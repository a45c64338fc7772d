#pragma once

#include <condition_variable>
#include <functional>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace quorin::support {

/// One request as it came over the wire.
struct ReceivedRequest {
    std::string method{};
    std::string target{};  ///< path and query, as in the request line
    std::vector<std::pair<std::string, std::string>> headers{};
    std::string body{};

    /// First value under `name` in any letter case.
    std::optional<std::string> header(std::string_view name) const;
};

/// The server's end of a connection, for a handler.
class Connection {
public:
    explicit Connection(int socket) : socket_(socket) {}

    /// Exactly these bytes; false when the client is gone.
    bool send(std::string_view bytes) const;

    /// No further request is read from the connection.
    void close() { isOpen_ = false; }

    /// As `close`, and the client sees a reset.
    void reset();

    /// True as soon as the client has closed its end, false when it has not within `milliseconds`.
    bool isClosedByClient(int milliseconds) const;

    bool isOpen() const { return isOpen_; }

private:
    int socket_;
    bool isOpen_ = true;
};

/// An HTTP/1.1 server on 127.0.0.1 that answers with exactly the bytes it is told to, right or wrong. A connection
/// stays open for further requests until its handler closes it. The destructor ends all threads.
class FaultServer {
public:
    /// Called for each request, on a thread of its connection.
    using Handler = std::function<void(const ReceivedRequest& request, Connection& connection)>;

    explicit FaultServer(Handler handler);

    /// Answers each target with its bytes and closes; targets that are not listed get a 404.
    explicit FaultServer(std::map<std::string, std::string> answers);

    ~FaultServer();
    FaultServer(const FaultServer&) = delete;
    FaultServer& operator=(const FaultServer&) = delete;

    int port() const { return port_; }
    std::string url(std::string_view target) const;

    /// Everything received so far, in order of arrival.
    std::vector<ReceivedRequest> requests() const;

    int acceptedConnections() const;

    /// Blocks until `count` requests have been received; false after ten seconds without.
    bool waitForRequests(std::size_t count) const;

private:
    void acceptAll();
    void serve(int socket);

    Handler handler_;
    int listener_ = -1;
    int port_ = 0;
    mutable std::mutex mutex_{};
    mutable std::condition_variable arrived_{};
    std::vector<ReceivedRequest> requests_{};
    std::vector<int> sockets_{};
    std::list<std::thread> connections_{};
    std::thread acceptor_{};
};

/// The bytes of a response with a Content-Length that fits. `headers` are whole lines, each with its CRLF.
std::string answer(int status, std::string_view body = "", std::string_view headers = "");

}  // namespace quorin::support
