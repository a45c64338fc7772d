#include "tests/platform/skell/Requests.hpp"

#include <gtest/gtest.h>

#include <atomic>
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

/// Whether disposing closes the connection, and whether anything was delivered, when the server stalls after `first`.
std::string disposedAfter(const std::string& first) {
    Stalling server(first);
    std::atomic<bool> isDelivered = false;
    const rx::Disposable subscription =
        Request::GET(server.url()).response().subscribe([&](const rx::Event<Response>&) { isDelivered = true; });
    server.waitUntilReached();
    subscription.dispose();
    const bool isClosed = server.isClosed();
    return std::string(isClosed ? "closed" : "open") + (isDelivered ? ", delivered" : "");
}

TEST(Disposal, ClosesTheConnectionBeforeTheHead) { EXPECT_EQ(disposedAfter(""), "closed"); }

TEST(Disposal, ClosesTheConnectionInTheHead) { EXPECT_EQ(disposedAfter("HTTP/1.1 200 OK\r\nA: b\r\n"), "closed"); }

TEST(Disposal, ClosesTheConnectionInTheBody) {
    EXPECT_EQ(disposedAfter("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n123"), "closed");
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
