#include "tests/platform/skell/Requests.hpp"
#include "tests/support/Nginx.hpp"

#include <gtest/gtest.h>
#include <malloc.h>

#include <filesystem>
#include <iterator>
#include <set>
#include <string>

namespace quorin::skell {
namespace {

namespace fs = std::filesystem;

std::size_t openFiles() {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

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
            files = openFiles();
            bytes = mallinfo2().uordblks;
        }
    }
    EXPECT_LE(connections.size(), 20U);  // the server closes one after a thousand requests
    EXPECT_LE(openFiles(), files + 1);   // that of such a connection may be closing
    EXPECT_LE(mallinfo2().uordblks, bytes + 64 * 1024);
}

/// What a server may do wrong, and the kind of failure that it gives.
struct Fault {
    const char* name;
    std::string answer;
    const char* kind;
};

const std::vector<Fault>& faults() {
    static const auto& all = *new std::vector<Fault>{
        {"closed at once", "", "network"},
        {"interim only", "HTTP/1.1 103 Early Hints\r\n\r\n", "network"},
        {"head cut", "HTTP/1.1 200 O", "network"},
        {"body cut", "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nabc", "network"},
        {"chunks broken", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n", "network"},
        {"not HTTP", "220 mail.example ESMTP\r\n", "network"},
        {"encoding broken", answer(200, "no gzip", "Content-Encoding: gzip\r\n"), "decoding"},
        {"encoding unknown", answer(200, "x", "Content-Encoding: x-own\r\n"), "decoding"},
        {"too large", answer(200, std::string(2000, 'x')), "tooLarge"},
        {"circle", answer(302, "", "Location: /\r\n"), "redirects"},
        {"file", answer(302, "", "Location: file:///etc/passwd\r\n"), "redirects"},
        {"over-long body", answer(200, "abc") + "HTTP/1.1 500 Forged\r\n\r\n", "none"},
    };
    return all;
}

TEST(Endurance, OfEachFaultLeavesTheNextRequestInPeace) {
    for (const Fault& fault : faults()) {
        const FaultServer server([&](const ReceivedRequest& request, Connection& connection) {
            connection.send(request.target == "/good" ? answer(200, "good") : fault.answer);
            if (request.target != "/good") connection.close();
        });
        const auto limited = [&](const char* target) {
            return with({.maxBody = 1000}, Request::GET(server.url(target)));
        };
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(failureKind(limited("/")), fault.kind) << fault.name;
            const auto next = performed(limited("/good"));
            ASSERT_TRUE(next) << fault.name;
            EXPECT_EQ(next->body(), "good") << fault.name;
        }
    }
}

}  // namespace
}  // namespace quorin::skell
