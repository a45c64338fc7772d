#include "tests/platform/skell/Requests.hpp"
#include "tests/support/Listener.hpp"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>

namespace quorin::skell {
namespace {

using namespace std::chrono_literals;

/// The failure of a GET whose answer is exactly `bytes`, then a close.
std::string failureOfAnswer(const std::string& bytes) {
    const FaultServer server({{"/", bytes}});
    return failureKind(server.url("/"));
}

Request withHeader(const FaultServer& server, std::string name, std::string value) {
    Request request = Request::GET(server.url("/"));
    request.headers[std::move(name)] = std::move(value);
    return request;
}

TEST(Failure, IsInvalidURLForTextThatIsNone) {
    for (const char* url : {"", "/a", "nowhere", "http://", "http:///a", "http://h/a b", "http://h/{id}", "http://h/%4",
                            "http://h:port/", "http://h/\xC3\xA9", "http://h/\n"}) {
        EXPECT_EQ(failureKind(url), "invalidURL") << url;
    }
}

TEST(Failure, IsInvalidURLForAHostThatEscapesToNone) {
    for (const char* url : {"http://h.example%80/", "http://h%00/", "http://h%0d%0aa/", "http://a%20b/"})
        EXPECT_EQ(failureKind(url), "invalidURL") << url;
}

TEST(Failure, IsInvalidURLForOtherSchemes) {
    for (const char* url : {"file:///etc/passwd", "ftp://127.0.0.1/", "gopher://127.0.0.1/", "data://x"}) {
        EXPECT_EQ(failureKind(url), "invalidURL") << url;
    }
}

TEST(Failure, TakesSchemesInAnyLetterCase) {
    const FaultServer server({{"/", answer(200)}});
    EXPECT_EQ(failureKind("HTTP://127.0.0.1:" + std::to_string(server.port()) + "/"), "none");
}

TEST(Failure, IsInvalidRequestForHeadersThatCannotBeSent) {
    const FaultServer server({{"/", answer(200)}});
    EXPECT_EQ(failureKind(withHeader(server, "", "v")), "invalidRequest");
    EXPECT_EQ(failureKind(withHeader(server, "a b", "v")), "invalidRequest");
    EXPECT_EQ(failureKind(withHeader(server, "a:", "v")), "invalidRequest");
    EXPECT_EQ(failureKind(withHeader(server, "A", "v\r\nB: c")), "invalidRequest");
    EXPECT_EQ(failureKind(withHeader(server, "A", "v\n")), "invalidRequest");
    EXPECT_EQ(failureKind(withHeader(server, "A", std::string("v\0", 2))), "invalidRequest");
    EXPECT_EQ(server.acceptedConnections(), 0);
}

TEST(Failure, IsInvalidRequestForHeadersOfTheLibraryAndNamesThem) {
    const FaultServer server({{"/", answer(200)}});
    for (const char* name : {"Host", "content-length", "Transfer-Encoding"}) {
        const SkellError error = failureOf(performed(withHeader(server, name, "secret")));
        EXPECT_EQ(error.kind, SkellError::Kind::invalidRequest);
        EXPECT_NE(error.message.find(name), std::string::npos) << error.message;
        EXPECT_EQ(error.message.find("secret"), std::string::npos) << error.message;
    }
    EXPECT_EQ(server.acceptedConnections(), 0);
}

TEST(Failure, TellsNothingBehindTheNameInAHeaderLine) {
    const FaultServer server({{"/", answer(200)}});
    const SkellError error = failureOf(performed(withHeader(server, "Authorization: Bearer secret", "")));
    EXPECT_EQ(error.kind, SkellError::Kind::invalidRequest);
    EXPECT_NE(error.message.find("\"Authorization\""), std::string::npos) << error.message;
    EXPECT_EQ(error.message.find("secret"), std::string::npos) << error.message;
}

TEST(Failure, IsInvalidRequestForBodiesThatTheMethodCannotHave) {
    for (const HTTPMethod method : {HTTPMethod::TRACE, HTTPMethod::CONNECT}) {
        const auto body = RequestBody::bytes("b");
        EXPECT_EQ(failureKind(Request{.method = method, .url = "http://127.0.0.1/", .body = body}), "invalidRequest");
    }
}

TEST(Failure, IsInvalidRequestForTimesThatAreNone) {
    EXPECT_EQ(failureKind(with({.connectTimeout = 0ms}, Request::GET("http://127.0.0.1/"))), "invalidRequest");
    EXPECT_EQ(failureKind(with({.totalTimeout = -1ms}, Request::GET("http://127.0.0.1/"))), "invalidRequest");
}

TEST(Failure, TakesTimesBeyondAllMeasure) {
    const FaultServer server({{"/", answer(200)}});
    const auto ever = std::chrono::milliseconds::max();
    EXPECT_EQ(failureKind(with({.connectTimeout = ever, .totalTimeout = ever}, Request::GET(server.url("/")))), "none");
}

TEST(Failure, IsResolveForAnUnknownHost) {
    EXPECT_EQ(failureKind("http://no-such-host.invalid/"), "resolve");
    EXPECT_EQ(failureKind("https://no-such-host.invalid:8443/"), "resolve");
}

TEST(Failure, IsResolveForAnUnknownHostBehindARedirect) {
    const FaultServer server({{"/", answer(302, "", "Location: http://no-such-host.invalid/\r\n")}});
    EXPECT_EQ(failureKind(server.url("/")), "resolve");
    EXPECT_EQ(server.acceptedConnections(), 1);
}

TEST(Failure, IsResolveForAProxyOfAnUnknownHost) {
    const FaultServer server({{"/", answer(200)}});
    const std::string proxy = "http://no-such-host.invalid:3128";
    EXPECT_EQ(failureKind(with({.proxy = proxy}, Request::GET(server.url("/")))), "resolve");
    EXPECT_EQ(server.acceptedConnections(), 0);
}

TEST(Failure, IsConnectWhereNobodyListens) {
    EXPECT_EQ(failureKind("http://127.0.0.1:" + std::to_string(support::closedPort()) + "/"), "connect");
}

TEST(Failure, IsConnectForAProxyThatIsNotThere) {
    const std::string proxy = "http://127.0.0.1:" + std::to_string(support::closedPort());
    EXPECT_EQ(failureKind(with({.proxy = proxy}, Request::GET("http://example.test/"))), "connect");
}

TEST(Failure, IsConnectWhenTheProxyRefusesTheTunnel) {
    const FaultServer proxy([](const ReceivedRequest&, Connection& connection) { connection.send(answer(403)); });
    EXPECT_EQ(failureKind(with({.proxy = proxy.url("")}, Request::GET("https://example.test/"))), "connect");
}

TEST(Failure, IsTimeoutWhenTheAnswerDrips) {
    const FaultServer server([](const ReceivedRequest&, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\n\r\n");
        while (!connection.isClosedByClient(20) && connection.send("x")) {
        }
    });
    EXPECT_EQ(failureKind(with({.totalTimeout = 300ms}, Request::GET(server.url("/")))), "timeout");
}

TEST(Failure, IsTimeoutWhenNoTLSHandshakeComes) {
    const support::Listener silent = support::listenOnFreePort();
    const std::string url = "https://127.0.0.1:" + std::to_string(silent.port) + "/";
    EXPECT_EQ(failureKind(with({.connectTimeout = 300ms}, Request::GET(url))), "timeout");
    close(silent.socket);
}

TEST(Failure, IsTimeoutWhenTheHopsTakeTooLongTogether) {
    const FaultServer server([](const ReceivedRequest&, Connection& connection) {
        if (!connection.isClosedByClient(100)) connection.send(answer(302, "", "Location: /\r\n"));
    });
    EXPECT_EQ(failureKind(with({.totalTimeout = 350ms}, Request::GET(server.url("/")))), "timeout");
}

TEST(Failure, IsTLSWhereTheServerHasNone) {
    const support::Listener plain = support::listenOnFreePort();
    std::thread answering([&] {
        const int socket = accept(plain.socket, nullptr, nullptr);
        send(socket, "HTTP/1.1 400 No\r\n\r\n", 19, MSG_NOSIGNAL);
        close(socket);
    });
    EXPECT_EQ(failureKind("https://127.0.0.1:" + std::to_string(plain.port) + "/"), "tls");
    answering.join();
    close(plain.socket);
}

TEST(Failure, IsNetworkWhenTheServerClosesBeforeInOrAfterTheHead) {
    EXPECT_EQ(failureOfAnswer(""), "network");
    EXPECT_EQ(failureOfAnswer("HTTP/1.1 200 OK\r\nContent-Le"), "network");
    EXPECT_EQ(failureOfAnswer("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n"), "network");
}

TEST(Failure, IsNetworkForABodyCutShort) {
    EXPECT_EQ(failureOfAnswer("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n12345"), "network");
    EXPECT_EQ(failureOfAnswer("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nabcde\r\n"), "network");
}

TEST(Failure, IsNetworkForBrokenChunks) {
    EXPECT_EQ(failureOfAnswer("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\nabc\r\n0\r\n\r\n"),
              "network");
}

TEST(Failure, IsNetworkForContradictingLengths) {
    EXPECT_EQ(failureOfAnswer("HTTP/1.1 200 OK\r\nContent-Length: 1\r\nContent-Length: 2\r\n\r\nab"), "network");
}

TEST(Failure, IsNetworkForWhatIsNotHTTP) {
    EXPECT_EQ(failureOfAnswer("SSH-2.0-OpenSSH_9.2\r\n"), "network");
    EXPECT_EQ(failureOfAnswer("<html>hello</html>"), "network");
    for (const char* line : {"ICY 200 OK", "RTSP/1.0 200 OK", "HTTP/7.0 200 OK", "HTTP/1.1 one OK", "HTTP 200", ""})
        EXPECT_EQ(failureOfAnswer(std::string(line) + "\r\nContent-Length: 1\r\n\r\nx"), "network") << line;
    EXPECT_EQ(failureOfAnswer(std::string("\x15\x03\x01\0\x02\x02\x28", 7)), "network");
}

TEST(Failure, IsNetworkForAReset) {
    const FaultServer server([](const ReceivedRequest&, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n123");
        connection.reset();
    });
    EXPECT_EQ(failureKind(server.url("/")), "network");
}

TEST(Failure, IsNetworkForHeadersWithoutEnd) {
    const FaultServer server([](const ReceivedRequest& request, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\n");
        const std::string field = request.target == "/lines" ? "X-Field: value\r\n" : "more and more";
        if (request.target == "/line") connection.send("X-Field: ");
        while (connection.send(field)) {
        }
        connection.close();
    });
    EXPECT_EQ(failureKind(server.url("/lines")), "network");
    EXPECT_EQ(failureKind(server.url("/line")), "network");
}

TEST(Failure, IsNetworkWhenTheServerClosesWhileTheBodyIsSent) {
    const support::Listener listener = support::listenOnFreePort();
    std::thread closing([&] { close(accept(listener.socket, nullptr, nullptr)); });
    Request request = Request::POST("http://127.0.0.1:" + std::to_string(listener.port) + "/");
    request.body = RequestBody::bytes(std::string(std::size_t{32} << 20, 'x'));
    EXPECT_EQ(failureKind(request), "network");
    closing.join();
    close(listener.socket);
}

TEST(Failure, TellsWhereButNoSecrets) {
    const std::string place = "127.0.0.1:" + std::to_string(support::closedPort()) + "/path";
    const auto error = failureOf(performed("http://user:secret@" + place + "?token=secret#secret"));
    EXPECT_EQ(error.url, "http://" + place);
    EXPECT_NE(error.message.find(error.url), std::string::npos);
    EXPECT_EQ(error.description().find("secret"), std::string::npos) << error.description();
}

}  // namespace
}  // namespace quorin::skell
