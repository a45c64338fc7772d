#include "tests/platform/skell/HeldName.hpp"
#include "tests/platform/skell/Requests.hpp"
#include "tests/support/Listener.hpp"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <future>
#include <string>

namespace quorin::skell {
namespace {

constexpr int hangGuard = 10'000;  // milliseconds

/// Sends `first`, then tells whether the client closes.
class Stalling {
public:
    explicit Stalling(std::string first)
        : server_([this, first](const ReceivedRequest&, Connection& connection) {
              connection.send(first);
              reached_.set_value();
              closed_.set_value(connection.isClosedByClient(hangGuard));
              connection.close();
          }) {}

    std::string url() const { return server_.url("/"); }
    void waitUntilReached() { reached_.get_future().wait(); }
    bool isClosed() { return closed_.get_future().get(); }

private:
    std::promise<void> reached_{};
    std::promise<bool> closed_{};
    FaultServer server_;
};

/// Takes one connection, and leaves unread what comes over it until it is asked whether the client closes.
class Unreading {
public:
    Unreading() = default;
    ~Unreading() {
        if (socket_ >= 0) close(socket_);
        close(listener_.socket);
    }
    Unreading(const Unreading&) = delete;
    Unreading& operator=(const Unreading&) = delete;

    std::string url(const std::string& scheme) const {
        return scheme + "://127.0.0.1:" + std::to_string(listener_.port) + "/";
    }

    void waitUntilReached() {
        ASSERT_TRUE(hasInput(listener_.socket));
        socket_ = accept(listener_.socket, nullptr, nullptr);
        ASSERT_TRUE(hasInput(socket_));
    }

    /// The end stands behind what was sent before it.
    bool isClosed() const {
        std::array<char, 64 * 1024> piece;
        while (hasInput(socket_)) {
            if (recv(socket_, piece.data(), piece.size(), 0) <= 0) return true;
        }
        return false;
    }

private:
    static bool hasInput(int socket) {
        pollfd readable{.fd = socket, .events = POLLIN, .revents = 0};
        return poll(&readable, 1, hangGuard) > 0;
    }

    support::Listener listener_ = support::listenOnFreePort();
    int socket_ = -1;
};

/// Whether disposing of the request that has reached the server closes the connection, and whether anything was
/// delivered, then or until the loop had time for another request.
template <class Server>
std::string disposed(const Request& request, Server& server) {
    const FaultServer another({{"/", answer(200)}});
    std::atomic<bool> isDelivered = false;
    const rx::Disposable subscription =
        request.response().subscribe([&](const rx::Event<Response>&) { isDelivered = true; });
    server.waitUntilReached();
    subscription.dispose();
    const bool isClosed = server.isClosed();
    EXPECT_TRUE(performed(another.url("/")));
    return std::string(isClosed ? "closed" : "open") + (isDelivered ? ", delivered" : "");
}

std::string disposedAfter(const std::string& first) {
    Stalling server(first);
    return disposed(Request::GET(server.url()), server);
}

TEST(Disposal, ClosesTheConnectionInTheTLSHandshake) {
    Unreading server;
    const auto patient = std::chrono::milliseconds(3 * hangGuard);
    const Request request =
        with({.connectTimeout = patient, .totalTimeout = patient}, Request::GET(server.url("https")));
    EXPECT_EQ(disposed(request, server), "closed");
}

TEST(Disposal, ClosesTheConnectionWhileTheBodyIsSent) {
    Unreading server;
    Request request = Request::POST(server.url("http"));
    request.body = RequestBody::bytes(std::string(std::size_t{32} << 20, 'x'));  // more than the system takes off us
    EXPECT_EQ(disposed(request, server), "closed");
}

TEST(Disposal, ClosesTheConnectionBeforeTheHead) { EXPECT_EQ(disposedAfter(""), "closed"); }

TEST(Disposal, ClosesTheConnectionInTheHead) { EXPECT_EQ(disposedAfter("HTTP/1.1 200 OK\r\nA: b\r\n"), "closed"); }

TEST(Disposal, ClosesTheConnectionInTheBody) {
    EXPECT_EQ(disposedAfter("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n123"), "closed");
}

TEST(Disposal, ClosesTheConnectionOfTheSecondHop) {
    Stalling second("");
    const FaultServer first({{"/", answer(302, "", "Location: " + second.url() + "\r\n")}});
    EXPECT_EQ(disposed(Request::GET(first.url("/")), second), "closed");
}

TEST(Disposal, DuringNameResolutionHoldsUpNobody) {
    HeldName name;
    const FaultServer server({{"/", answer(200)}});
    std::atomic<bool> isDelivered = false;
    const rx::Disposable subscription =
        Request::GET("http://" + name.text() + "/").response().subscribe([&](const rx::Event<Response>&) {
            isDelivered = true;
        });
    name.waitUntilAsked();
    subscription.dispose();
    std::promise<void> ended;
    const auto end = ended.get_future();
    Request::GET(server.url("/")).response().subscribe({.completed = [&] { ended.set_value(); }});
    EXPECT_EQ(end.wait_for(std::chrono::milliseconds(hangGuard)), std::future_status::ready);
    name.release();
    end.wait();
    EXPECT_FALSE(isDelivered);
}

TEST(Disposal, BeforeTheBeginningReachesNoServer) {
    const FaultServer server({{"/", answer(200)}});
    const FaultServer other({{"/", answer(200)}});
    std::atomic<bool> isDelivered = false;
    const auto subscribeAndDispose = [&](const Response&) {  // the loop is in here and cannot begin anything
        const auto response = Request::GET(other.url("/never")).response();
        response.subscribe([&](const rx::Event<Response>&) { isDelivered = true; }).dispose();
    };
    std::promise<void> ended;
    Request::GET(server.url("/")).response().subscribe({.next = subscribeAndDispose, .completed = [&] {
                                                            ended.set_value();
                                                        }});
    ended.get_future().wait();
    EXPECT_TRUE(performed(other.url("/")));
    EXPECT_EQ(other.acceptedConnections(), 1);
    EXPECT_FALSE(isDelivered);
}

TEST(Disposal, MayComeAtOnce) {
    const FaultServer server({{"/", answer(200)}});
    std::atomic<bool> isDelivered = false;
    for (int i = 0; i < 100; ++i) {
        Request::GET(server.url("/"))
            .response()
            .subscribe([&](const rx::Event<Response>& event) {
                if (event.error()) isDelivered = true;
            })
            .dispose();
    }
    EXPECT_TRUE(performed(server.url("/")));
    EXPECT_FALSE(isDelivered);
}

TEST(Disposal, ChangesNothingAfterTheEnd) {
    const FaultServer server({{"/", answer(200)}});
    std::promise<void> completed;
    const rx::Disposable subscription =
        Request::GET(server.url("/")).response().subscribe({.completed = [&] { completed.set_value(); }});
    completed.get_future().wait();
    subscription.dispose();
    EXPECT_TRUE(performed(server.url("/")));
}

TEST(Disposal, InsideTheHandlerKeepsTheCompletionAway) {
    const FaultServer server({{"/", answer(200)}});
    std::promise<rx::Disposable> known;
    std::atomic<int> events = 0;
    const auto handle = known.get_future().share();
    known.set_value(Request::GET(server.url("/")).response().subscribe([&, handle](const rx::Event<Response>&) {
        ++events;
        handle.get().dispose();
    }));
    while (events == 0) EXPECT_TRUE(performed(server.url("/")));
    EXPECT_TRUE(performed(server.url("/")));
    EXPECT_EQ(events, 1);
}

TEST(Disposal, OfANeighbourInsideAHandlerClosesItsConnection) {
    Stalling stalling("");
    const FaultServer server({{"/", answer(200)}});
    const rx::Disposable neighbour = Request::GET(stalling.url()).response().subscribe(rx::Handlers<Response>{});
    stalling.waitUntilReached();
    Request::GET(server.url("/")).response().subscribe({.next = [neighbour](const Response&) { neighbour.dispose(); }});
    EXPECT_TRUE(stalling.isClosed());
}

TEST(Disposal, LeavesTheOthersAlone) {
    Stalling stalling("");
    const FaultServer server([](const ReceivedRequest&, Connection& connection) { connection.send(answer(200)); });
    const rx::Disposable given = Request::GET(stalling.url()).response().subscribe(rx::Handlers<Response>{});
    stalling.waitUntilReached();
    EXPECT_TRUE(performed(server.url("/")));
    given.dispose();
    EXPECT_TRUE(performed(server.url("/")));
    EXPECT_EQ(server.acceptedConnections(), 1);
    EXPECT_TRUE(stalling.isClosed());
}

TEST(Disposal, OfADroppedHandleIsNone) {
    const FaultServer server({{"/", answer(200)}});
    std::promise<int> status;
    {
        Request::GET(server.url("/")).response().subscribe({.next = [&](const Response& r) {
            status.set_value(r.status());
        }});
    }
    EXPECT_EQ(status.get_future().get(), 200);
}

}  // namespace
}  // namespace quorin::skell
