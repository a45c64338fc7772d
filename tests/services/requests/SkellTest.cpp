#include "quorin/services/requests/Skell.hpp"

#include "tests/services/requests/Building.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorin {
namespace {

TEST(Skell, IsMadeForEachMethod) {
    for (const auto name : HTTPMethod::rawValues) {
        const Skell request = Skell::createSkell(*HTTPMethod::fromRawValue(name), "http://h/ {x}");
        EXPECT_EQ(request.method.rawValue(), name);
        EXPECT_EQ(request.url, "http://h/ {x}");
        EXPECT_TRUE(request.headers.empty());
        EXPECT_FALSE(request.body || request.transport);
    }
}

TEST(Skell, IsWhatTheRequestLibrarysConstructorsYield) {
    Skell request = Skell::GET("http://h/");
    EXPECT_EQ(request.method, HTTPMethod::GET);
    EXPECT_EQ(request.url, "http://h/");
    request = Skell::DELETE("http://h/1");
    EXPECT_EQ(request.method, HTTPMethod::DELETE);
    EXPECT_EQ(request.url, "http://h/1");
}

TEST_F(Building, UsesTheMethodThatIsNamed) {
    EXPECT_EQ(built({.requestURL = "/"}).method, HTTPMethod::GET);
    for (const auto name : HTTPMethod::rawValues) {
        const auto method = *HTTPMethod::fromRawValue(name);
        EXPECT_EQ(built({.requestURL = "/", .requestMethod = method}).method, method) << name;
        EXPECT_EQ(built({}, {.url = "/", .method = method}).method, method) << name;
    }
}

TEST_F(Building, CarriesTheManagersTransport) {
    ASSERT_TRUE(built(BuildArguments()).transport);
    EXPECT_EQ(built(BuildArguments()).transport->maxBody, 4321U);
    EXPECT_EQ(built({}, WebService()).transport->maxBody, 4321U);
}

TEST_F(Building, TakesEveryAnswerOfTheParameters) {
    const Skell request = built(
        {.headers = StringMap{{"X-One", "1"}},
         .dictionaryRepresentation = DocumentMap{{"a", 1}},
         .mapping = StringMap{{"{id}", "42"}},
         .query = StringMap{{"q", "a b"}},
         .removeUserAgent = true},
        {.name = "n", .url = "https://h/{id}", .method = HTTPMethod::PATCH, .contentTypeHeader = ContentType::JSON});
    EXPECT_EQ(request.method, HTTPMethod::PATCH);
    EXPECT_EQ(request.url, "https://h/42?q=a%20b");
    EXPECT_EQ(request.headers,
              (StringMap{{"Content-Type", "application/json"}, {"VEXO-USERTZ", "+0100"}, {"X-One", "1"}}));
    EXPECT_EQ(request.body->text(), R"({"a":1})");
}

TEST_F(Building, AsksNeitherWhetherTheParametersAreValidNorForTheirText) {
    const RecordingParams params;
    Skell::build(params, WebService(), manager_);
    EXPECT_THAT(params.questions(), testing::UnorderedElementsAre("headers", "dictionaryRepresentation", "URLMapping",
                                                                  "queryParameters", "removeUserAgent"));
}

TEST_F(Building, LeavesItsArgumentsAsTheyAre) {
    const BuildArguments arguments{.requestURL = "/{id}",
                                   .requestHeaders = {{"X-One", "1"}},
                                   .urlMapping = StringMap{{"{id}", "42"}},
                                   .queryParameters = StringMap{{"a", "1"}}};
    EXPECT_EQ(built(arguments).url, "/42?a=1");
    EXPECT_EQ(built(arguments).url, "/42?a=1");
    EXPECT_EQ(built(arguments).headers, built(arguments).headers);
}

TEST_F(Building, NeverFails) {
    const Skell request = built({.requestURL = std::string("\0 {\xFF", 4),
                                 .requestHeaders = {{"", "\n"}, {"Content-Type", "\xFF"}},
                                 .urlMapping = StringMap{{"\xFF", std::string(1, '\0')}},
                                 .queryParameters = StringMap{{"\xFF", "\xFF"}},
                                 .dictionaryRepresentation = DocumentMap{{"\xFF", "\xFF"}}});
    EXPECT_EQ(request.url, std::string("\0 {\0", 4));
    EXPECT_FALSE(request.body);
    EXPECT_EQ(request.refusal()->kind, SkellError::Kind::invalidURL);
}

}  // namespace
}  // namespace quorin
