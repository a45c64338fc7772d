#include "quorin/platform/foundation/HeldCookies.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

namespace quorin::foundation {
namespace {

using namespace std::chrono_literals;
using Time = HTTPCookie::Time;

constexpr Time now(1'700'000'000s);

/// Cookies of which a test only wants to know which are there.
struct HeldCookiesTest : testing::Test {
    HeldCookies held;

    void set(int number, const std::string& domain, std::optional<Time> expires = std::nullopt) {
        held.set({.name = std::to_string(number), .domain = domain, .expires = expires}, now);
    }

    void send(const std::string& url) { held.toSend(CookieOrigin::of(url).value(), now); }

    bool has(int number, const std::string& domain, Time moment = now) {
        return std::ranges::any_of(held.all(moment), [&](const HTTPCookie& cookie) {
            return cookie.name == std::to_string(number) && cookie.domain == domain;
        });
    }

    std::size_t count(Time moment = now) { return held.all(moment).size(); }

    /// Three thousand of sixty hosts: of number 0 of host 0, number 0 of host 1, and so on.
    void fill() {
        for (int number = 0; number < 50; ++number)
            for (int host = 0; host < 60; ++host) set(number, "h" + std::to_string(host));
    }
};

TEST_F(HeldCookiesTest, AreAtMost50OfADomain) {
    for (int number = 0; number < 50; ++number) set(number, "h");
    set(0, "other");
    EXPECT_EQ(count(), 51U);
    set(50, "h");
    EXPECT_EQ(count(), 51U);
    EXPECT_FALSE(has(0, "h"));
    EXPECT_TRUE(has(1, "h") && has(50, "h") && has(0, "other"));
}

TEST_F(HeldCookiesTest, OfADomainAreReplacedWithoutLoss) {
    for (int number = 0; number < 50; ++number) set(number, "h");
    set(49, "h");
    EXPECT_EQ(count(), 50U);
}

TEST_F(HeldCookiesTest, OfADomainGiveWayWhenSetLongestAgo) {
    for (int number = 0; number < 50; ++number) set(number, "h");
    set(0, "h");
    set(50, "h");
    EXPECT_TRUE(has(0, "h"));
    EXPECT_FALSE(has(1, "h"));
}

TEST_F(HeldCookiesTest, OfADomainGiveWayWhenSentLongestAgo) {
    held.set({.name = "0", .domain = "h", .path = "/p"}, now);
    for (int number = 1; number < 50; ++number)
        held.set({.name = std::to_string(number), .domain = "h", .path = "/q"}, now);
    send("http://h/p");
    set(50, "h");
    EXPECT_TRUE(has(0, "h"));
    EXPECT_FALSE(has(1, "h"));
}

TEST_F(HeldCookiesTest, AreNotUsedByBeingListed) {
    for (int number = 0; number < 50; ++number) set(number, "h");
    EXPECT_EQ(count(), 50U);
    set(50, "h");
    EXPECT_FALSE(has(0, "h"));
}

TEST_F(HeldCookiesTest, OfADomainGiveWayFirstWhenExpired) {
    for (int number = 0; number < 49; ++number) set(number, "h");
    set(49, "h", now + 1s);
    held.set({.name = "50", .domain = "h"}, now + 1s);
    EXPECT_EQ(count(), 50U);
    EXPECT_TRUE(has(0, "h") && has(50, "h"));
    EXPECT_FALSE(has(49, "h"));
}

TEST_F(HeldCookiesTest, AreAtMost3000InAll) {
    fill();
    EXPECT_EQ(count(), 3000U);
    set(0, "more");
    EXPECT_EQ(count(), 3000U);
    EXPECT_FALSE(has(0, "h0"));
    EXPECT_TRUE(has(0, "h1") && has(0, "more"));
}

TEST_F(HeldCookiesTest, InAllGiveWayWhenUsedLongestAgo) {
    fill();
    send("http://h0/");
    set(0, "h1");
    set(0, "more");
    EXPECT_TRUE(has(0, "h0") && has(0, "h1"));
    EXPECT_FALSE(has(0, "h2"));
}

TEST_F(HeldCookiesTest, InAllGiveWayFirstWhenExpired) {
    fill();
    set(7, "h7", now + 1s);
    held.set({.name = "0", .domain = "more"}, now + 1s);
    EXPECT_EQ(count(), 3000U);
    EXPECT_TRUE(has(0, "h0") && has(0, "more"));
    EXPECT_FALSE(has(7, "h7"));
}

TEST_F(HeldCookiesTest, ExpireEachAtTheirTime) {
    for (int number = 0; number < 50; ++number) set(number, "h", now + std::chrono::seconds(50 - number));
    EXPECT_EQ(count(now + 10s), 40U);
    EXPECT_EQ(count(now + 11s), 39U);
    EXPECT_EQ(count(now + 50s), 0U);
}

TEST_F(HeldCookiesTest, OfHostileResponsesAreTheLastOnes) {
    fill();
    for (int number = 0; number < 20'000; ++number)
        set(number, "h" + std::to_string(number % 200), now + std::chrono::hours(number + 1));
    EXPECT_EQ(count(), 3000U);
    EXPECT_TRUE(has(17'000, "h0") && has(19'999, "h199"));
    EXPECT_FALSE(has(16'999, "h199"));
}

TEST_F(HeldCookiesTest, FindDomainsOfTheLongestHostName) {
    std::string host = "a";
    while (host.size() < 253) host += ".a";
    set(0, host);
    held.set({.name = "1", .domain = "a.a", .isHostOnly = false}, now);
    EXPECT_EQ(held.toSend(CookieOrigin::of("http://" + host).value(), now).size(), 2U);
}

}  // namespace
}  // namespace quorin::foundation
