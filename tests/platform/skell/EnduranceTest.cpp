#include "tests/platform/skell/Requests.hpp"
#include "tests/support/Command.hpp"
#include "tests/support/Descriptors.hpp"
#include "tests/support/Memory.hpp"
#include "tests/support/Nginx.hpp"

#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <future>
#include <set>
#include <string>
#include <vector>

namespace quorin::skell {
namespace {

using namespace std::chrono_literals;

TEST(Endurance, OfTenThousandRequestsLeavesNothingBehind) {
    constexpr int warmUp = 1000;
    constexpr int requests = 10'000;
    const support::Nginx nginx;
    std::set<std::string, std::less<>> connections;
    std::size_t files = 0;
    std::size_t bytes = 0;
    for (int i = 0; i < requests; ++i) {
        const auto response = performed(nginx.url("plain", "/object.json"));
        ASSERT_TRUE(response) << i << ": " << response.error().description();
        ASSERT_EQ(response->body(), support::Nginx::object) << i;
        connections.emplace(*response->header("X-Connection"));
        if (i == warmUp) {
            files = support::openDescriptors();
            bytes = mallinfo2().uordblks;
        }
    }
    EXPECT_LE(connections.size(), 20U);                // the server closes one after a thousand requests
    EXPECT_LE(support::openDescriptors(), files + 1);  // that of such a connection may be closing
    EXPECT_LE(mallinfo2().uordblks, bytes + 64 * 1024);
}

using Behaviour = std::function<void(Connection&)>;

Behaviour says(const std::string& bytes) {
    return [bytes](Connection& connection) { connection.send(bytes); };
}

void drips(Connection& connection) {
    connection.send("HTTP/1.1 200 OK\r\n\r\n");
    while (!connection.isClosedByClient(20) && connection.send("x")) {
    }
}

void resets(Connection& connection) {
    connection.send("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nabc");
    connection.reset();
}

/// A head that goes on with the same piece over and over.
struct EndlessHead {
    const char* start;
    const char* piece;
};

constexpr EndlessHead manyLines{"HTTP/1.1 200 OK\r\n", "X-Field: value\r\n"};
constexpr EndlessHead longLine{"HTTP/1.1 200 OK\r\nX-Field: ", "more and more"};

/// Sends the head for as long as the client takes it. Yields the most memory that this process had meanwhile.
std::size_t mostWhileSending(const EndlessHead& head, const Connection& connection) {
    std::size_t most = 0;
    bool isTaken = connection.send(head.start);
    while (isTaken) {
        isTaken = connection.send(head.piece);
        most = std::max(most, support::residentBytes());
    }
    return most;
}

Behaviour begins(const EndlessHead& head) {
    return [head](Connection& connection) { mostWhileSending(head, connection); };
}

std::string bomb() { return support::outputOf("head -c 30000000 /dev/zero | gzip -1c"); }

constexpr std::size_t maxBody = 1000;

/// What a server may do wrong, and the kind of failure that it gives.
struct Fault {
    const char* name;
    Behaviour behaviour;
    const char* kind;
    std::chrono::milliseconds totalTimeout{30'000};
};

std::vector<Fault> faults() {
    return {
        {"closed at once", says(""), "network"},
        {"interim only", says("HTTP/1.1 103 Early Hints\r\n\r\n"), "network"},
        {"head cut", says("HTTP/1.1 200 O"), "network"},
        {"head of many lines", begins(manyLines), "network"},
        {"head of one long line", begins(longLine), "network"},
        {"body cut", says("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nabc"), "network"},
        {"body cut by a reset", resets, "network"},
        {"body that drips", drips, "timeout", 300ms},
        {"chunks broken", says("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n"), "network"},
        {"not HTTP", says("220 mail.example ESMTP\r\n"), "network"},
        {"encoding broken", says(answer(200, "no gzip", "Content-Encoding: gzip\r\n")), "decoding"},
        {"encoding unknown", says(answer(200, "x", "Content-Encoding: x-own\r\n")), "decoding"},
        {"too large", says(answer(200, std::string(2 * maxBody, 'x'))), "tooLarge"},
        {"bomb", says(answer(200, bomb(), "Content-Encoding: gzip\r\n")), "tooLarge"},
        {"circle", says(answer(302, "", "Location: /\r\n")), "redirects"},
        {"file", says(answer(302, "", "Location: file:///etc/passwd\r\n")), "redirects"},
        {"over-long body", says(answer(200, "abc") + "HTTP/1.1 500 Forged\r\n\r\n"), "none"},
    };
}

TEST(Endurance, OfEachFaultLeavesTheNextRequestInPeace) {
    for (const Fault& fault : faults()) {
        const FaultServer server([&](const ReceivedRequest& request, Connection& connection) {
            if (request.target == "/good") return static_cast<void>(connection.send(answer(200, "good")));
            fault.behaviour(connection);
            connection.close();
        });
        const Request faulty =
            with({.totalTimeout = fault.totalTimeout, .maxBody = maxBody}, Request::GET(server.url("/")));
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(failureKind(faulty), fault.kind) << fault.name;
            const auto next = performed(with({.maxBody = maxBody}, Request::GET(server.url("/good"))));
            ASSERT_TRUE(next) << fault.name;
            EXPECT_EQ(next->body(), "good") << fault.name;
        }
    }
}

TEST(Endurance, OfAHeadWithoutEndTakesLittleMemory) {
    for (const EndlessHead& head : {manyLines, longLine}) {
        std::promise<std::size_t> most;
        const FaultServer server([&](const ReceivedRequest&, Connection& connection) {
            most.set_value(mostWhileSending(head, connection));
            connection.close();
        });
        const std::size_t before = support::residentBytes();
        EXPECT_EQ(failureKind(server.url("/")), "network");
        EXPECT_LT(most.get_future().get(), before + (std::size_t{8} << 20));
    }
}

TEST(Endurance, OfUntrustedServersLeavesTheNextRequestInPeace) {
    const support::Nginx nginx;
    const auto requested = [&](const char* host) {
        return with({.caFile = nginx.caFile()}, Request::GET(nginx.url(host, "/object.json")));
    };
    for (const char* host : {"expired", "selfsigned", "wronghost", "outdated"}) {
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(failureKind(requested(host)), "tls") << host;
            for (const char* next : {"good", "plain"}) {
                const auto response = performed(requested(next));
                ASSERT_TRUE(response) << host;
                EXPECT_EQ(response->body(), support::Nginx::object) << host;
            }
        }
    }
}

/// A response, its status, and its body.
struct Answered {
    std::string bytes;
    int status;
    const char* body;
};

TEST(Endurance, OfEachClassOfStatusLeavesTheConnectionToTheNextRequest) {
    const std::vector<Answered> all{
        {"HTTP/1.1 103 Early Hints\r\nLink: </a>\r\n\r\n" + answer(200, "whole"), 200, "whole"},
        {"HTTP/1.1 204 No Content\r\n\r\n", 204, ""},
        {"HTTP/1.1 304 Not Modified\r\nContent-Length: 9\r\n\r\n", 304, ""},
        {answer(404, "missing"), 404, "missing"},
        {answer(500, "broken"), 500, "broken"},
    };
    const FaultServer server([&](const ReceivedRequest& request, Connection& connection) {
        connection.send(all.at(std::stoul(request.target.substr(1))).bytes);
    });
    for (std::size_t i = 0; i < 3 * all.size(); ++i) {
        const Answered& expected = all[i % all.size()];
        const auto response = performed(server.url("/" + std::to_string(i % all.size())));
        ASSERT_TRUE(response) << expected.status;
        EXPECT_EQ(response->status(), expected.status);
        EXPECT_EQ(response->body(), expected.body) << expected.status;
    }
    EXPECT_EQ(server.acceptedConnections(), 1);
}

}  // namespace
}  // namespace quorin::skell
