#include "quorin/platform/skell/Request.hpp"

#include "tests/platform/skell/Requests.hpp"
#include "tests/support/FaultServer.hpp"
#include "tests/support/Listener.hpp"
#include "tests/support/Memory.hpp"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace quorin::skell {
namespace {

using support::answer;
using support::Connection;
using support::FaultServer;
using support::ReceivedRequest;

/// A request as it came over the wire, but for the HTTP version.
std::string written(const ReceivedRequest& received) {
    std::string text = received.method + " " + received.target + "\n";
    for (const auto& [name, value] : received.headers) text.append(name).append(": ").append(value).append("\n");
    return text + "\n" + received.body;
}

struct Sent {
    HTTPMethod method;
    std::string_view length;  ///< announced without a body; empty where nothing is
    bool takesBody;
};

constexpr std::array<Sent, 9> methods{{{HTTPMethod::CONNECT, "", false},
                                       {HTTPMethod::DELETE, "", true},
                                       {HTTPMethod::HEAD, "", true},
                                       {HTTPMethod::OPTIONS, "", true},
                                       {HTTPMethod::PATCH, "0", true},
                                       {HTTPMethod::POST, "0", true},
                                       {HTTPMethod::PUT, "0", true},
                                       {HTTPMethod::TRACE, "", false},
                                       {HTTPMethod::GET, "", true}}};

const std::vector<std::pair<RequestBody, std::string_view>>& bodies() {
    static const auto& all = *new std::vector<std::pair<RequestBody, std::string_view>>{
        {RequestBody(RequestBodyType::JSON, {{"b", "\xC3\xA9"}, {"a", 1}}), "{\"a\":1,\"b\":\"\xC3\xA9\"}"},
        {RequestBody(RequestBodyType::XML, {{"b", "\xC3\xA9"}, {"a", 1}}),
         "<request><a>1</a><b>\xC3\xA9</b></request>"},
        {RequestBody(RequestBodyType::urlEncoded, {{"b", "\xC3\xA9"}, {"a", 1}}), "a=1&b=%C3%A9"},
        {RequestBody(RequestBodyType::JSON), "{}"},
        {RequestBody(RequestBodyType::urlEncoded), ""},
        {RequestBody::bytes(std::string("\0\r\n\r\n", 5)), std::string_view("\0\r\n\r\n", 5)}};
    return all;
}

class Sending : public testing::TestWithParam<Sent> {
protected:
    /// What the server sees of a request. The next one shows on the same connection when bytes are left over.
    std::string received(std::optional<RequestBody> body) const {
        const Request request{.method = GetParam().method,
                              .url = server_.url("/p/a?x=1"),
                              .body = std::move(body),
                              .transport = Transport{.cookies = nullptr}};
        const auto response = performed(request);
        return response ? written(server_.requests().back()) : kindOf(response);
    }

    std::string expected(std::string_view length, std::string_view body) const {
        const std::string host = "127.0.0.1:" + std::to_string(server_.port());
        std::string text(GetParam().method.rawValue());
        text += " /p/a?x=1\nHost: " + host + "\nAccept-Encoding: gzip, br\n";
        if (!length.empty()) text.append("Content-Length: ").append(length).append("\n");
        return text + "\n" + std::string(body);
    }

    const FaultServer server_{[](const ReceivedRequest&, Connection& connection) { connection.send(answer(200)); }};
};

TEST_P(Sending, SendsExactlyARequestWithoutABody) {
    EXPECT_EQ(received(std::nullopt), expected(GetParam().length, ""));
}

TEST_P(Sending, SendsExactlyTheBodyAndItsLengthOrRefusesIt) {
    std::size_t sent = 0;
    for (const auto& [body, text] : bodies()) {
        const bool takesBody = GetParam().takesBody;
        EXPECT_EQ(received(body), takesBody ? expected(std::to_string(text.size()), text) : "invalidRequest");
        sent += takesBody ? 1 : 0;
    }
    EXPECT_EQ(server_.requests().size(), sent);
}

INSTANTIATE_TEST_SUITE_P(Methods, Sending, testing::ValuesIn(methods),
                         [](const auto& row) { return std::string(row.param.method.rawValue()); });

constexpr char filling = '#';  // does not occur in the head

struct Receiving {
    std::string head{};
    std::size_t most = 0;  ///< the most memory that this process had at any time in between
};

/// Takes one request with a body of `size` such bytes and keeps nothing of that.
Receiving receiving(int listener, std::size_t size) {
    Receiving seen;
    const int socket = accept(listener, nullptr, nullptr);
    std::array<char, 64 * 1024> piece;
    std::size_t received = 0;
    while (received < size) {
        const ssize_t count = recv(socket, piece.data(), piece.size(), 0);
        if (count <= 0) break;
        std::remove_copy(piece.begin(), piece.begin() + count, std::back_inserter(seen.head), filling);
        received += static_cast<std::size_t>(std::count(piece.begin(), piece.begin() + count, filling));
        seen.most = std::max(seen.most, support::residentBytes());
    }
    const std::string end = answer(200, received < size ? "cut short" : "whole", "Connection: close\r\n");
    if (send(socket, end.data(), end.size(), MSG_NOSIGNAL) < 0) seen.most = 0;
    close(socket);
    return seen;
}

TEST(SendingMuch, KeepsNoSecondCopyOfTheBodyAndAsksNoPermission) {
    constexpr std::size_t size = std::size_t{50} << 20;
    const support::Listener listener = support::listenOnFreePort();
    Request request = Request::POST("http://127.0.0.1:" + std::to_string(listener.port) + "/");
    request.body = RequestBody::bytes(std::string(size, filling));
    EXPECT_TRUE(performed("http://127.0.0.1:" + std::to_string(support::closedPort()) + "/").error().as<SkellError>());
    const std::size_t before = support::residentBytes();
    Receiving seen;
    std::thread server([&] { seen = receiving(listener.socket, size); });
    const auto response = performed(request);
    server.join();
    close(listener.socket);
    ASSERT_TRUE(response);
    EXPECT_EQ(response->body(), "whole");
    EXPECT_GE(seen.most, size);
    EXPECT_LT(seen.most, before + size / 2);
    EXPECT_TRUE(seen.head.starts_with("POST / HTTP/1.1\r\n")) << seen.head;
    EXPECT_EQ(seen.head.find("Expect"), std::string::npos) << seen.head;
}

}  // namespace
}  // namespace quorin::skell
