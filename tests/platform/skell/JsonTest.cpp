#include "quorin/platform/skell/Json.hpp"

#include "tests/platform/skell/Requests.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin::skell {
namespace {

SkellError objectFailure(int status, const std::string& body) {
    const FaultServer server({{"/", answer(status, body)}});
    return failureOf(rx::wait(json(Request::GET(server.url("/")).response())));
}

TEST(Json, YieldsTheObjectOfASuccess) {
    const FaultServer server({{"/", answer(201, R"({"a": 1})")}});
    EXPECT_EQ(*rx::wait(json(Request::GET(server.url("/")).response())), (json::DocumentMap{{"a", 1}}));
}

TEST(Json, YieldsTheListOfASuccess) {
    const FaultServer server({{"/", answer(200, "[1, 2]")}});
    EXPECT_EQ(*rx::wait(jsonArray(Request::GET(server.url("/")).response())), (json::List{1, 2}));
}

TEST(Json, FailsWithAnyOtherStatusWhateverTheBody) {
    for (const int status : {300, 304, 404, 500}) {
        const SkellError error = objectFailure(status, status == 304 ? "" : "{}");
        EXPECT_EQ(error.kind, SkellError::Kind::status);
        EXPECT_EQ(error.status, status);
    }
}

TEST(Json, FailsWithABodyOfAnotherShape) {
    EXPECT_EQ(objectFailure(200, "[]").kind, SkellError::Kind::decoding);
    EXPECT_EQ(objectFailure(200, "1").status, std::nullopt);
    const FaultServer server({{"/", answer(200, "{}")}});
    EXPECT_EQ(kindOf(rx::wait(jsonArray(Request::GET(server.url("/")).response()))), "decoding");
}

TEST(Json, TellsWhereABodyIsBroken) {
    const SkellError error = objectFailure(200, "{\"a\": 1,\n  x}");
    EXPECT_EQ(error.kind, SkellError::Kind::decoding);
    EXPECT_NE(error.message.find("line 2, column 3"), std::string::npos) << error.message;
}

TEST(Json, FailsWithAnEmptyBody) { EXPECT_EQ(objectFailure(200, "").kind, SkellError::Kind::decoding); }

TEST(Json, PassesOtherFailuresThrough) {
    EXPECT_EQ(kindOf(rx::wait(json(Request::GET("nowhere").response()))), "invalidURL");
}

}  // namespace
}  // namespace quorin::skell
