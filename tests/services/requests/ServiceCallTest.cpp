#include "quorin/context/AnonymousBind.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/services/requests/Models.hpp"

#include "tests/services/requests/Building.hpp"
#include "tests/support/FaultServer.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quorin {
namespace {

using support::answer;
using support::Connection;
using support::FaultServer;
using support::ReceivedRequest;
using testing::Pair;
using testing::UnorderedElementsAre;

/// A manager that has loaded a document whose services are those of a server on this machine.
class ServiceCall : public Building {
protected:
    ServiceCall() {
        manager_.setUserAgent("CFNetwork/1.0 Darwin/2.0");
        manager_.setKova("account");
        const std::string path = folder_.write("document.json", R"({"orvel": {}, "webservices": {
            "bind": {"name": "b", "url": {"value": ")" + server_.url("/v1/{id}/bind")
                                                                    + R"("}, "method": "post",
                     "header": {"Content-Type": "Application/JSON", "Accept": "application/json"}},
            "form": {"name": "f", "url": {"value": ")" + server_.url("/form?v=2")
                                                                    + R"("}, "method": "POST"},
            "search": {"name": "s", "url": {"value": ")" + server_.url("/search")
                                                                    + R"("}, "method": "get",
                       "header": {"Content-Type": "application/xml"}}}})");
        const auto loaded = rx::wait(manager_.initialize(PathURL{path}, {.brand = Brand::orvel, .version = "3.2.1"}));
        EXPECT_TRUE(loaded && (*loaded)->webServices);
        manager_.setUserZ("+0100");
    }

    Skell call(const char* service, RecordingParams::Answers answers) const {
        return built(std::move(answers), manager_.configuration()->webServices->at(service));
    }

    /// What the server received of the one request.
    ReceivedRequest received(const Skell& request) const {
        EXPECT_TRUE(rx::wait(request.response()));
        EXPECT_EQ(server_.requests().size(), 1U);
        return server_.requests().at(0);
    }

    std::string host() const { return "127.0.0.1:" + std::to_string(server_.port()); }

    const support::TemporaryFolder folder_{};
    const FaultServer server_{[](const ReceivedRequest&, Connection& connection) {
        connection.send(answer(200, R"({"profileId": "p", "jwt": "t"})"));
    }};
};

TEST_F(ServiceCall, SendsExactlyWhatWasBuilt) {
    const auto request = received(call("bind", {.headers = StringMap{{"X-One", "1"}},
                                                .dictionaryRepresentation = DocumentMap{{"b", "\xC3\xA9"}, {"a", 1}},
                                                .mapping = StringMap{{"{id}", "42"}},
                                                .query = StringMap{{"q", "a b&c"}, {"p", "~"}}}));
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.target, "/v1/42/bind?p=~&q=a%20b%26c");
    EXPECT_THAT(
        request.headers,
        UnorderedElementsAre(Pair("Host", host()), Pair("Accept", "application/json"),
                             Pair("Accept-Encoding", "gzip, br"), Pair("Content-Type", "application/json"),
                             Pair("Content-Length", "16"), Pair("KOVA", "account"), Pair("User-Agent", userAgent),
                             Pair("VEXO-USERTZ", "+0100"), Pair("X-One", "1"), Pair("appversion", "3.2.1")));
    EXPECT_EQ(request.body, "{\"a\":1,\"b\":\"\xC3\xA9\"}");
}

TEST_F(ServiceCall, SendsAFormWithPOST) {
    const auto request = received(call("form", {.dictionaryRepresentation = DocumentMap{{"b", "x y"}, {"a", 1}},
                                                .query = StringMap{{"a", "1"}},
                                                .removeUserAgent = true}));
    EXPECT_EQ(request.method + " " + request.target, "POST /form?v=2&a=1");
    EXPECT_EQ(request.header("Content-Type"), "application/x-www-form-urlencoded");
    EXPECT_EQ(request.header("User-Agent"), std::nullopt);
    EXPECT_EQ(request.body, "a=1&b=x+y");
}

TEST_F(ServiceCall, SendsABodyWithGETToo) {
    const auto request = received(call("search", {.dictionaryRepresentation = DocumentMap{{"q", "<a&b>"}}}));
    EXPECT_EQ(request.method + " " + request.target, "GET /search");
    EXPECT_EQ(request.header("Content-Type"), "application/xml");
    EXPECT_EQ(request.body, "<request><q>&lt;a&amp;b&gt;</q></request>");
}

TEST_F(ServiceCall, YieldsAModelOfTheResponse) {
    const auto bind = rx::wait(model<AnonymousBind>(call("bind", {.mapping = StringMap{{"{id}", "42"}}}).response()));
    ASSERT_TRUE(bind);
    EXPECT_EQ(*bind, (AnonymousBind{"p", "t"}));
}

TEST_F(ServiceCall, IsSentAgainForEachSubscription) {
    const auto responses = call("search", {}).response();
    EXPECT_TRUE(server_.requests().empty());
    EXPECT_TRUE(rx::wait(responses));
    EXPECT_TRUE(rx::wait(responses));
    EXPECT_EQ(server_.requests().size(), 2U);
}

TEST_F(ServiceCall, FailsWhereAPlaceholderIsLeft) {
    const auto response = rx::wait(call("bind", {.query = StringMap{{"a", "1"}}}).response());
    ASSERT_FALSE(response);
    EXPECT_EQ(response.error().as<SkellError>()->kind, SkellError::Kind::invalidURL);
    EXPECT_TRUE(server_.requests().empty());
}

TEST_F(ServiceCall, FailsWhereTheQueryKeepsWhatNoURLHolds) {
    for (const char* value : {"\"", "<", ">", "|", "^", "`", "{", "}", "\\", "\n"}) {
        const auto response = rx::wait(call("search", {.query = StringMap{{"q", value}}}).response());
        ASSERT_FALSE(response) << value;
        EXPECT_EQ(response.error().as<SkellError>()->kind, SkellError::Kind::invalidURL) << value;
    }
    EXPECT_TRUE(server_.requests().empty());
}

TEST_F(ServiceCall, TravelsAsTheManagersTransportSays) {
    Platform narrow = platform();
    narrow.transport.maxBody = 10;
    const Instance manager(narrow);
    const auto response = rx::wait(Skell::build({.requestURL = server_.url("/")}, manager).response());
    ASSERT_FALSE(response);
    EXPECT_EQ(response.error().as<SkellError>()->kind, SkellError::Kind::tooLarge);
}

}  // namespace
}  // namespace quorin
