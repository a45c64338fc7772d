#include "quorin/platform/rx/Wait.hpp"

#include "tests/services/requests/Building.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorin {
namespace {

using testing::Contains;
using testing::Pair;

/// A manager with every default header.
class RequestHeaders : public Building {
protected:
    RequestHeaders() {
        manager_.setUserAgent("CFNetwork/1.0 Darwin/2.0");
        manager_.setKova("account");
        manager_.setVEXOMVPD("provider");
        const std::string path = folder_.write("a.json", "{}");
        EXPECT_TRUE(rx::wait(manager_.initialize(PathURL{path}, {.version = "3.2.1"})));
        manager_.setUserZ("+0100");
    }

    static StringMap defaults() {
        return {{"KOVA", "account"},
                {"User-Agent", userAgent},
                {"VEXO-MVPD", "provider"},
                {"VEXO-USERTZ", "+0100"},
                {"appversion", "3.2.1"}};
    }

    /// The default headers and these.
    static StringMap defaultsAnd(StringMap more) {
        more.merge(defaults());
        return more;
    }

    const support::TemporaryFolder folder_{};
};

const WebService service{.contentTypeHeader = ContentType::JSON, .acceptHeader = ContentType::XML};

TEST_F(RequestHeaders, AreTheDefaultHeadersWhereNobodyAddsAny) {
    EXPECT_EQ(built(BuildArguments()).headers, defaults());
}

TEST_F(RequestHeaders, AreThoseOfTheServiceToo) {
    EXPECT_EQ(built({}, service).headers,
              defaultsAnd({{"Accept", "application/xml"}, {"Content-Type", "application/json"}}));
    EXPECT_EQ(built({}, WebService()).headers, defaultsAnd({{"Content-Type", "application/x-www-form-urlencoded"}}));
}

TEST_F(RequestHeaders, AreTheCallersInPlaceOfTheServices) {
    EXPECT_EQ(built({.headers = StringMap{{"Accept", "text/plain"}, {"X-One", "1"}}}, service).headers,
              defaultsAnd({{"Accept", "text/plain"}, {"Content-Type", "application/json"}, {"X-One", "1"}}));
    EXPECT_EQ(built({.headers = StringMap{{"Accept", ""}, {"Content-Type", "text/csv"}}}, service).headers,
              defaultsAnd({{"Accept", ""}, {"Content-Type", "text/csv"}}));
}

TEST_F(RequestHeaders, StayAsTheyAreWithAnEmptyMap) {
    EXPECT_EQ(built({.headers = StringMap()}, service).headers, built({}, service).headers);
}

TEST_F(RequestHeaders, AreTheDefaultOnesInPlaceOfTheCallers) {
    const StringMap own{
        {"KOVA", "x"}, {"User-Agent", "x"}, {"VEXO-MVPD", "x"}, {"VEXO-USERTZ", "x"}, {"appversion", "x"}};
    EXPECT_EQ(built({.requestHeaders = own}).headers, defaults());
    EXPECT_EQ(built({.headers = own}, service).headers,
              defaultsAnd({{"Accept", "application/xml"}, {"Content-Type", "application/json"}}));
}

TEST_F(RequestHeaders, AreTheCallersWhereTheManagerHasNone) {
    manager_.setKova(std::nullopt);
    manager_.setVEXOMVPD(std::nullopt);
    const StringMap headers = built({.requestHeaders = {{"KOVA", "mine"}, {"X-One", "1"}}}).headers;
    EXPECT_THAT(headers, Contains(Pair("KOVA", "mine")));
    EXPECT_THAT(headers, Contains(Pair("X-One", "1")));
    EXPECT_EQ(headers.count("VEXO-MVPD"), 0U);
}

TEST_F(RequestHeaders, AreKeptByTheirExactNames) {
    EXPECT_EQ(built({.requestHeaders = {{"user-agent", "x"}, {"kova", "y"}, {"content-type", "z"}}}).headers,
              defaultsAnd({{"user-agent", "x"}, {"kova", "y"}, {"content-type", "z"}}));
    EXPECT_EQ(built({.headers = StringMap{{"accept", "x"}}}, service).headers,
              defaultsAnd({{"accept", "x"}, {"Accept", "application/xml"}, {"Content-Type", "application/json"}}));
}

TEST_F(RequestHeaders, HaveNoUserAgentWhereItIsToBeRemovedWhoeverSetIt) {
    StringMap expected = defaults();
    expected.erase("User-Agent");
    for (const StringMap& own : {StringMap(), StringMap{{"User-Agent", "x"}}, StringMap{{"user-agent", "x"}},
                                 StringMap{{"USER-AGENT", "x"}, {"User-agent", "y"}}})
        EXPECT_EQ(built({.requestHeaders = own, .removeUserAgent = true}).headers, expected);
}

TEST_F(RequestHeaders, HaveNoUserAgentWhereTheParametersSaySo) {
    const auto request = built({.headers = StringMap{{"User-Agent", "x"}}, .removeUserAgent = true}, service);
    StringMap expected = defaultsAnd({{"Accept", "application/xml"}, {"Content-Type", "application/json"}});
    expected.erase("User-Agent");
    EXPECT_EQ(request.headers, expected);
}

TEST_F(RequestHeaders, LoseNothingElseWithTheUserAgent) {
    const auto request =
        built({.requestHeaders = {{"User-Agents", "x"}, {"User Agent", "y"}}, .removeUserAgent = true});
    EXPECT_THAT(request.headers, Contains(Pair("User-Agents", "x")));
    EXPECT_THAT(request.headers, Contains(Pair("User Agent", "y")));
}

TEST_F(RequestHeaders, AreThoseOfTheMomentOfBuilding) {
    const Skell before = built(BuildArguments());
    manager_.setKova("other");
    manager_.setVEXOMVPD(std::nullopt);
    manager_.setUserZ("-0500");
    StringMap expected = defaults();
    expected["KOVA"] = "other";
    expected["VEXO-USERTZ"] = "-0500";
    expected.erase("VEXO-MVPD");
    EXPECT_EQ(built(BuildArguments()).headers, expected);
    EXPECT_EQ(before.headers, defaults());
}

TEST_F(Building, AddsNoAppVersionWithoutAConfiguration) {
    manager_.setUserAgent("CFNetwork/1.0 Darwin/2.0");
    EXPECT_EQ(built(BuildArguments()).headers, (StringMap{{"User-Agent", userAgent}, {"VEXO-USERTZ", "+0100"}}));
}

}  // namespace
}  // namespace quorin
