#include "quorin/services/requests/APIParams.hpp"
#include "quorin/services/requests/URLEncode.hpp"

#include <gtest/gtest.h>

namespace quorin {
namespace {

TEST(APIParams, SayNothingByDefaultAndAreNotValid) {
    const APIParams params;
    EXPECT_EQ(params.headers(), std::nullopt);
    EXPECT_EQ(params.dictionaryRepresentation(), std::nullopt);
    EXPECT_EQ(params.urlEncodedString(), std::nullopt);
    EXPECT_FALSE(params.hasValidParams());
    EXPECT_EQ(params.URLMapping(), std::nullopt);
    EXPECT_EQ(params.queryParameters(), std::nullopt);
    EXPECT_FALSE(params.removeUserAgent());
}

struct Search final : APIParams {
    std::optional<StringMap> query{};
    std::optional<StringMap> queryParameters() const override { return query; }
};

TEST(APIParams, EncodeTheirQueryByDefault) {
    Search search;
    search.query = StringMap{{"q", "a b&c"}, {"p", "\xC3\xA9"}};
    EXPECT_EQ(search.urlEncodedString(), "p=%C3%A9&q=a%20b%26c");
    search.query = StringMap();
    EXPECT_EQ(search.urlEncodedString(), std::nullopt);
}

struct Bound final : APIParams {
    bool hasValidParams() const override { return true; }
    std::optional<std::string> urlEncodedString() const override { return "own"; }
};

TEST(APIParams, AreOverriddenOneByOne) {
    const Bound bound;
    const APIParams& params = bound;
    EXPECT_TRUE(params.hasValidParams());
    EXPECT_EQ(params.urlEncodedString(), "own");
    EXPECT_EQ(params.headers(), std::nullopt);
}

}  // namespace
}  // namespace quorin
