#include "Requests.hpp"
#include "tests/support/FaultServer.hpp"
#include "tests/support/Nginx.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace quorin::skell {
namespace {

using foundation::HTTPCookieStorage;
using support::answer;
using support::Connection;
using support::FaultServer;
using support::ReceivedRequest;

Request keeping(const std::shared_ptr<HTTPCookieStorage>& cookies, std::string url) {
    return with({.cookies = cookies}, Request::GET(std::move(url)));
}

std::string redirect(const std::string& location, const std::string& headers = "") {
    return answer(302, "", headers + "Location: " + location + "\r\n");
}

TEST(Cookies, OfAResponseAreSentWithTheNextRequest) {
    const FaultServer server({{"/", answer(200, "", "Set-Cookie: a=1\r\nX: y\r\nset-cookie: b=2; HttpOnly\r\n")}});
    const auto cookies = std::make_shared<HTTPCookieStorage>();
    EXPECT_EQ(failureKind(keeping(cookies, server.url("/"))), "none");
    EXPECT_EQ(failureKind(keeping(cookies, server.url("/"))), "none");
    EXPECT_EQ(server.requests().at(0).header("Cookie"), std::nullopt);
    EXPECT_EQ(server.requests().at(1).header("Cookie"), "a=1; b=2");
}

TEST(Cookies, OfAResponseThatFailedOrWasRefusedAreKeptToo) {
    const FaultServer server({{"/", answer(503, "", "Set-Cookie: a=1\r\n")}});
    const auto cookies = std::make_shared<HTTPCookieStorage>();
    EXPECT_EQ(failureKind(keeping(cookies, server.url("/"))), "none");
    EXPECT_EQ(cookies->cookieHeader(server.url("/")), "a=1");
}

TEST(Cookies, AreTakenAndSentAtEachHop) {
    const FaultServer server([](const ReceivedRequest& request, Connection& connection) {
        connection.send(request.target == "/a" ? redirect("/b", "Set-Cookie: at=a\r\n")
                                               : answer(200, "", "Set-Cookie: at=b\r\n"));
    });
    const auto cookies = std::make_shared<HTTPCookieStorage>();
    EXPECT_EQ(failureKind(keeping(cookies, server.url("/a"))), "none");
    EXPECT_EQ(server.requests().at(0).header("Cookie"), std::nullopt);
    EXPECT_EQ(server.requests().at(1).header("Cookie"), "at=a");
    EXPECT_EQ(cookies->cookieHeader(server.url("/")), "at=b");
}

TEST(Cookies, GoToTheHostThatSetThemAlone) {
    const FaultServer other({{"/", answer(200)}});
    const std::string elsewhere = "http://localhost:" + std::to_string(other.port()) + "/";
    const FaultServer server({{"/", redirect(elsewhere, "Set-Cookie: a=1; Domain=localhost\r\nSet-Cookie: b=2\r\n")}});
    const auto cookies = std::make_shared<HTTPCookieStorage>();
    EXPECT_EQ(failureKind(keeping(cookies, server.url("/"))), "none");
    EXPECT_EQ(other.requests().at(0).header("Cookie"), std::nullopt);
    EXPECT_EQ(cookies->cookies().size(), 1U);
}

TEST(Cookies, OfTheOtherHostGoThere) {
    const FaultServer other({{"/", answer(200)}});
    const std::string elsewhere = "http://localhost:" + std::to_string(other.port()) + "/";
    const FaultServer server({{"/", redirect(elsewhere)}});
    const auto cookies = std::make_shared<HTTPCookieStorage>();
    cookies->setCookie({.name = "its", .value = "own", .domain = "localhost"});
    EXPECT_EQ(failureKind(keeping(cookies, server.url("/"))), "none");
    EXPECT_EQ(other.requests().at(0).header("Cookie"), "its=own");
}

TEST(Cookies, OfTheFirstOriginDoNotFollowARedirectToAnotherPort) {
    const FaultServer other({{"/", answer(200)}});
    const FaultServer server({{"/", redirect(other.url("/"), "Set-Cookie: a=1\r\n")}});
    const auto cookies = std::make_shared<HTTPCookieStorage>();
    EXPECT_EQ(failureKind(keeping(cookies, server.url("/"))), "none");
    EXPECT_EQ(other.requests().at(0).header("Cookie"), std::nullopt);
}

TEST(Cookies, OfTheFirstHostDoNotFollowARedirectFromHTTPToHTTPS) {
    const support::Nginx nginx;
    const auto cookies = std::make_shared<HTTPCookieStorage>();
    cookies->setCookie({.name = "a", .value = "1", .domain = "127.0.0.1"});
    const auto sentTo = [&](const std::string& host, const char* path) {
        const Request request =
            with({.caFile = nginx.caFile(), .cookies = cookies}, Request::GET(nginx.url(host, path)));
        return std::string(performed(request)->header("X-Cookie").value_or("none"));
    };
    EXPECT_EQ(sentTo("plain", "/object.json"), "a=1");
    EXPECT_EQ(sentTo("plain", "/up"), "none");
    EXPECT_EQ(sentTo("good", "/object.json"), "a=1");
}

TEST(Cookies, OfADomainFollowARedirectToASiblingHost) {
    std::string sibling;
    const FaultServer server([&](const ReceivedRequest& request, Connection& connection) {
        const bool isFirst = request.target == "/first";
        connection.send(isFirst ? redirect(sibling, "Set-Cookie: all=1; Domain=x.localhost\r\nSet-Cookie: own=2\r\n")
                                : answer(200));
    });
    const std::string port = std::to_string(server.port());
    sibling = "http://b.x.localhost:" + port + "/second";
    const auto cookies = std::make_shared<HTTPCookieStorage>();
    EXPECT_EQ(failureKind(keeping(cookies, "http://a.x.localhost:" + port + "/first")), "none");
    EXPECT_EQ(server.requests().at(1).header("Cookie"), "all=1");
}

// Cookies know no ports; only what the first host holds is kept from its other origins.
TEST(Cookies, OfALaterHostFollowARedirectToItsOtherPort) {
    const FaultServer third({{"/", answer(200)}});
    const auto onLocalhost = [](const FaultServer& server) {
        return "http://localhost:" + std::to_string(server.port()) + "/";
    };
    const FaultServer second({{"/", redirect(onLocalhost(third), "Set-Cookie: its=own\r\n")}});
    const FaultServer first({{"/", redirect(onLocalhost(second), "Set-Cookie: a=1\r\n")}});
    EXPECT_EQ(failureKind(keeping(std::make_shared<HTTPCookieStorage>(), first.url("/"))), "none");
    EXPECT_EQ(second.requests().at(0).header("Cookie"), std::nullopt);
    EXPECT_EQ(third.requests().at(0).header("Cookie"), "its=own");
}

TEST(Cookies, AreSentAgainWhenARedirectLeadsBack) {
    std::string back;
    const FaultServer other([&](const ReceivedRequest&, Connection& connection) { connection.send(redirect(back)); });
    const FaultServer server({{"/", redirect(other.url("/"), "Set-Cookie: a=1\r\n")}, {"/back", answer(200)}});
    back = server.url("/back");
    EXPECT_EQ(failureKind(keeping(std::make_shared<HTTPCookieStorage>(), server.url("/"))), "none");
    EXPECT_EQ(server.requests().at(1).header("Cookie"), "a=1");
}

TEST(Cookies, LeaveACookieHeaderOfTheCallersAlone) {
    const FaultServer server({{"/", answer(200, "", "Set-Cookie: a=1\r\n")}});
    const auto cookies = std::make_shared<HTTPCookieStorage>();
    EXPECT_EQ(failureKind(keeping(cookies, server.url("/"))), "none");
    Request request = keeping(cookies, server.url("/"));
    request.headers = {{"cookie", "own=1"}};
    EXPECT_EQ(failureKind(request), "none");
    EXPECT_EQ(server.requests().at(1).header("Cookie"), "own=1");
}

TEST(Cookies, AreNeitherSentNorKeptWithoutAStorage) {
    const FaultServer server({{"/", answer(200, "", "Set-Cookie: a=1\r\n")}});
    for (int i = 0; i < 2; ++i) EXPECT_EQ(failureKind(keeping(nullptr, server.url("/"))), "none");
    EXPECT_EQ(server.requests().at(1).header("Cookie"), std::nullopt);
}

TEST(Cookies, AreKeptInTheSharedStorageUnlessToldOtherwise) {
    const FaultServer server({{"/shared", answer(200, "", "Set-Cookie: shared=1; Path=/shared\r\n")}});
    EXPECT_EQ(failureKind(server.url("/shared")), "none");
    EXPECT_EQ(HTTPCookieStorage::shared()->cookieHeader(server.url("/shared")), "shared=1");
}

}  // namespace
}  // namespace quorin::skell
