#include "quorin/context/AnonymousBind.hpp"
#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Request.hpp"
#include "quorin/services/WebService.hpp"
#include "quorin/services/requests/Models.hpp"

#include "tests/support/FaultServer.hpp"
#include "tests/table/Documents.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

rx::Observable<skell::Response> response(std::string body, int status = 200) {
    return rx::just(skell::Response({.status = status, .url = "http://h/p", .body = std::move(body)}));
}

rx::Result<AnonymousBind> oneOf(const rx::Observable<skell::Response>& responses) {
    return rx::wait(model<AnonymousBind>(responses));
}

rx::Result<std::vector<AnonymousBind>> listOf(const rx::Observable<skell::Response>& responses) {
    return rx::wait(models<AnonymousBind>(responses));
}

/// The request library's failure, "none" where there is another or none.
template <class T>
std::string skellFailure(const rx::Result<T>& result) {
    const auto* const error = result ? nullptr : result.error().template as<SkellError>();
    return error ? error->description() : "none";
}

template <class T>
std::string_view kindOf(const rx::Result<T>& result) {
    const auto* const error = result ? nullptr : result.error().template as<SkellError>();
    return error ? SkellError::name(error->kind) : "none";
}

const AnonymousBind first{"p", "t"};
const AnonymousBind second{"", ""};

TEST(Model, IsMadeOfTheResponse) {
    const auto bind = oneOf(response(R"({"profileId": "p", "jwt": "t", "more": []})"));
    ASSERT_TRUE(bind);
    EXPECT_EQ(*bind, first);
}

TEST(Model, FailsWhereTheObjectMakesNone) {
    for (const char* body :
         {"{}", R"({"profileId": "p"})", R"({"profileId": 1, "jwt": "t"})", R"({"ProfileID": "p"})"}) {
        const auto bind = oneOf(response(body));
        ASSERT_FALSE(bind) << body;
        const Oops* const oops = bind.error().as<Oops>();
        ASSERT_TRUE(oops) << body;
        EXPECT_EQ(*oops,
                  (Oops{InstrumentationCodes::Component::configurationManager, InstrumentationCodes::Element::default_,
                        InstrumentationCodes::ErrorCode::jsonParsing, "Model failed to initialize"}));
    }
}

TEST(Model, IsAnyTypeThatReadsDocuments) {
    const auto service = rx::wait(
        model<WebService>(response(R"({"name": "login", "url": {"value": "https://h/{id}"}, "method": "post"})")));
    ASSERT_TRUE(service);
    EXPECT_EQ(*service, (WebService{.name = "login", .url = "https://h/{id}", .method = HTTPMethod::POST}));
    EXPECT_FALSE(rx::wait(model<WebService>(response(R"({"name": "login", "url": "u", "method": "post"})"))));
}

TEST(Model, PassesTheFailuresOfDecodingOn) {
    for (const auto& failing :
         {response("", 200), response("[]"), response("1"), response("{"), response("{}", 404), response("[]", 500)}) {
        const auto bind = oneOf(failing);
        EXPECT_EQ(skellFailure(bind), skellFailure(rx::wait(skell::json(failing))));
        EXPECT_NE(skellFailure(bind), "none");
    }
    EXPECT_EQ(kindOf(oneOf(response(R"({"profileId": "p", "jwt": "t"})", 404))), "status");
    EXPECT_EQ(kindOf(oneOf(response(R"([{"profileId": "p", "jwt": "t"}])"))), "decoding");
}

TEST(Model, PassesTheFailuresOfTheRequestOn) {
    EXPECT_EQ(kindOf(oneOf(skell::Request::GET("nowhere").response())), "invalidURL");
    EXPECT_EQ(kindOf(listOf(skell::Request::GET("nowhere").response())), "invalidURL");
}

TEST(Models, AreThoseThatTheElementsMakeInTheirOrder) {
    const auto binds = listOf(response(R"([1, {"profileId": "p", "jwt": "t"}, {"profileId": "p"},
                                           {"profileId": "", "jwt": ""}, null, [{"profileId": "x", "jwt": "x"}],
                                           {"profileId": "p", "jwt": "t"}])"));
    ASSERT_TRUE(binds);
    EXPECT_THAT(*binds, ElementsAre(first, second, first));
}

TEST(Models, AreNoneWhereNoElementMakesOne) {
    for (const char* body : {"[]", "[{}]", R"([1, "a", null, true, [], {"profileId": "p"}])"}) {
        const auto binds = listOf(response(body));
        ASSERT_TRUE(binds) << body;
        EXPECT_THAT(*binds, IsEmpty()) << body;
    }
}

TEST(Models, PassTheFailuresOfDecodingOn) {
    for (const auto& failing :
         {response("", 200), response("{}"), response("1"), response("["), response("[]", 404), response("{}", 500)}) {
        const auto binds = listOf(failing);
        EXPECT_EQ(skellFailure(binds), skellFailure(rx::wait(skell::jsonArray(failing))));
        EXPECT_NE(skellFailure(binds), "none");
    }
    EXPECT_EQ(kindOf(listOf(response(R"([{"profileId": "p", "jwt": "t"}])", 300))), "status");
    EXPECT_EQ(kindOf(listOf(response(R"({"profileId": "p", "jwt": "t"})"))), "decoding");
}

TEST(Models, AreManyWhereTheArrayIsLong) {
    std::string body = "[1";
    for (int i = 0; i < 10'000; ++i) body += R"(, {"profileId": ")" + std::to_string(i) + R"(", "jwt": "t"}, {})";
    const auto binds = listOf(response(body + "]"));
    ASSERT_TRUE(binds);
    ASSERT_EQ(binds->size(), 10'000U);
    EXPECT_EQ(binds->front().profileID, "0");
    EXPECT_EQ(binds->back().profileID, "9999");
}

TEST(Models, ComeFromAServerAsTheResponseDoes) {
    const support::FaultServer server({{"/one", support::answer(201, R"({"profileId": "p", "jwt": "t"})")},
                                       {"/list", support::answer(200, R"([2, {"profileId": "p", "jwt": "t"}])")},
                                       {"/none", support::answer(200, R"({"profileId": "p"})")}});
    const auto one = oneOf(skell::Request::GET(server.url("/one")).response());
    const auto list = listOf(skell::Request::GET(server.url("/list")).response());
    const auto none = oneOf(skell::Request::GET(server.url("/none")).response());
    ASSERT_TRUE(one && list && !none);
    EXPECT_EQ(*one, first);
    EXPECT_THAT(*list, ElementsAre(first));
    EXPECT_EQ(none.error().description(), "configurationManager: default: jsonParsing: Model failed to initialize");
}

}  // namespace
}  // namespace quorin
