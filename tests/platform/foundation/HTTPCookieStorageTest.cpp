#include "quorin/platform/foundation/HTTPCookieStorage.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace quorin::foundation {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Time = HTTPCookie::Time;

/// A storage whose time the test tells.
struct HTTPCookieStorageTest : testing::Test {
    Time now{1'700'000'000s};
    HTTPCookieStorage storage{[this] { return now; }};

    void set(const std::vector<std::string_view>& texts, std::string_view url) { storage.setCookies(texts, url); }

    void put(std::string name, std::string domain, std::optional<Time> expires = std::nullopt) {
        storage.setCookie({.name = std::move(name), .value = "v", .domain = std::move(domain), .expires = expires});
    }

    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& cookie : storage.cookies()) all.push_back(cookie.name);
        return all;
    }
};

TEST_F(HTTPCookieStorageTest, IsEmptyAtFirst) {
    EXPECT_THAT(storage.cookies(), IsEmpty());
    EXPECT_THAT(storage.cookies("https://h/"), IsEmpty());
    EXPECT_EQ(storage.cookieHeader("https://h/"), "");
}

TEST_F(HTTPCookieStorageTest, WritesThePairsOfAHeader) {
    set({"a=1", "b=\"x y\"; Path=/", "c="}, "http://h/");
    EXPECT_EQ(storage.cookieHeader("http://h/p"), "a=1; b=\"x y\"; c=");
}

TEST_F(HTTPCookieStorageTest, SendsNothingToURLsWithoutAHost) {
    set({"a=1"}, "http://h/");
    put("b", "");
    for (const char* url : {"", "/", "h", "http:///", "http://h./", "http://h h/"})
        EXPECT_EQ(storage.cookieHeader(url), "") << url;
}

TEST_F(HTTPCookieStorageTest, SendsHostCookiesToTheirHostAlone) {
    set({"a=1"}, "http://x.example.com/");
    EXPECT_EQ(storage.cookieHeader("http://X.Example.com:81/"), "a=1");
    for (const char* url : {"http://y.x.example.com/", "http://example.com/", "http://xx.example.com/"})
        EXPECT_EQ(storage.cookieHeader(url), "") << url;
}

TEST_F(HTTPCookieStorageTest, SendsDomainCookiesToHostsBelow) {
    set({"a=1; Domain=example.com"}, "http://x.example.com/");
    for (const char* url : {"http://example.com/", "http://x.example.com/", "http://z.y.example.com/"})
        EXPECT_EQ(storage.cookieHeader(url), "a=1") << url;
    for (const char* url : {"http://badexample.com/", "http://example.com.org/", "http://com/"})
        EXPECT_EQ(storage.cookieHeader(url), "") << url;
}

TEST_F(HTTPCookieStorageTest, SendsCookiesOfAnAddressToItAlone) {
    set({"a=1; Domain=127.0.0.1"}, "http://127.0.0.1/");
    set({"b=2"}, "http://[::1]/");
    EXPECT_EQ(storage.cookieHeader("http://127.0.0.1/"), "a=1");
    EXPECT_EQ(storage.cookieHeader("http://[0::1]/"), "b=2");
    EXPECT_EQ(storage.cookieHeader("http://a.127.0.0.1/"), "");
}

TEST_F(HTTPCookieStorageTest, FindsNoDomainAboveAnAddress) {
    storage.setCookie({.name = "a", .value = "1", .domain = "0.0.1", .isHostOnly = false});
    EXPECT_EQ(storage.cookieHeader("http://127.0.0.1/"), "");
}

TEST_F(HTTPCookieStorageTest, SendsCookiesBelowTheirPath) {
    set({"a=1; Path=/a", "b=2; Path=/a/b/"}, "http://h/");
    EXPECT_EQ(storage.cookieHeader("http://h/a"), "a=1");
    EXPECT_EQ(storage.cookieHeader("http://h/a/b"), "a=1");
    EXPECT_EQ(storage.cookieHeader("http://h/a/b/c?d"), "b=2; a=1");
    EXPECT_EQ(storage.cookieHeader("http://h/ab"), "");
}

TEST_F(HTTPCookieStorageTest, SendsSecureCookiesWithHTTPSAlone) {
    set({"a=1; Secure", "b=2"}, "http://h/");
    EXPECT_EQ(storage.cookieHeader("HTTPS://h/"), "a=1; b=2");
    for (const char* url : {"http://h/", "//h/", "wss://h/"}) EXPECT_EQ(storage.cookieHeader(url), "b=2") << url;
}

TEST_F(HTTPCookieStorageTest, SendsLongerPathsFirstAndThenThoseFirstSet) {
    set({"a=1; Path=/", "b=2; Path=/p/q", "c=3; Path=/p", "d=4; Path=/p/q"}, "http://h.example.com/");
    set({"e=5; Path=/p/q; Domain=example.com"}, "http://h.example.com/");
    set({"f=6; Path=/p/q"}, "http://h.example.com/");
    EXPECT_EQ(storage.cookieHeader("http://h.example.com/p/q"), "b=2; d=4; e=5; f=6; c=3; a=1");
}

TEST_F(HTTPCookieStorageTest, ReplacesInPlace) {
    set({"a=1", "b=2", "a=3; Secure; HttpOnly"}, "http://h/");
    EXPECT_THAT(names(), ElementsAre("a", "b"));
    EXPECT_EQ(storage.cookieHeader("https://h/"), "a=3; b=2");
    EXPECT_TRUE(storage.cookies().at(0).isHTTPOnly);
}

TEST_F(HTTPCookieStorageTest, HoldsOneCookieOfANameADomainAndAPath) {
    set({"a=1", "A=2", "a=3; Path=/p", "a=4; Domain=example.com"}, "http://h.example.com/");
    EXPECT_EQ(storage.cookieHeader("http://h.example.com/p"), "a=3; a=1; A=2; a=4");
    set({"a=5; Domain=h.example.com"}, "http://h.example.com/");
    EXPECT_EQ(storage.cookieHeader("http://h.example.com/p"), "a=3; a=5; A=2; a=4");
}

TEST_F(HTTPCookieStorageTest, RemovesWhatIsSetExpired) {
    set({"a=1", "b=2", "c=3"}, "http://h/");
    set({"a=; Max-Age=0", "b=; Expires=Thu, 01 Jan 1970 00:00:00 GMT", "d=; Max-Age=-1"}, "http://h/");
    EXPECT_THAT(names(), ElementsAre("c"));
}

TEST_F(HTTPCookieStorageTest, DropsWhatHasExpired) {
    set({"a=1; Max-Age=10", "b=2; Max-Age=20", "c=3"}, "http://h/");
    now += 9s;
    EXPECT_EQ(storage.cookieHeader("http://h/"), "a=1; b=2; c=3");
    now += 1s;
    EXPECT_EQ(storage.cookieHeader("http://h/"), "b=2; c=3");
    now += 10s;
    EXPECT_THAT(names(), ElementsAre("c"));
}

TEST_F(HTTPCookieStorageTest, GivesANewPlaceAfterExpiry) {
    set({"a=1; Max-Age=10", "b=2"}, "http://h/");
    now += 10s;
    set({"a=3"}, "http://h/");
    EXPECT_THAT(names(), ElementsAre("b", "a"));
}

TEST_F(HTTPCookieStorageTest, KeepsACookieWhoseEndIsPutOff) {
    set({"a=1; Max-Age=10"}, "http://h/");
    set({"a=2; Max-Age=30"}, "http://h/");
    now += 20s;
    EXPECT_EQ(storage.cookieHeader("http://h/"), "a=2");
    now += 10s;
    EXPECT_EQ(storage.cookieHeader("http://h/"), "");
}

TEST_F(HTTPCookieStorageTest, SetsManyAsOneAfterTheOther) {
    const std::vector<std::string_view> texts{"a=1; Max-Age=5", "bad", "b=2; Domain=example.com", "a=3",
                                              "b=; Max-Age=0"};
    storage.setCookies(texts, "http://h.example.com/p/");
    HTTPCookieStorage other([this] { return now; });
    for (auto& cookie : HTTPCookie::cookiesWithResponseHeaderFields(texts, "http://h.example.com/p/", now))
        other.setCookie(std::move(cookie));
    EXPECT_EQ(storage.cookies(), other.cookies());
    EXPECT_EQ(storage.cookies().size(), 2U);
}

TEST_F(HTTPCookieStorageTest, AsksItsClockUnlocked) {
    HTTPCookieStorage* inner = nullptr;
    int depth = 0;
    HTTPCookieStorage asking([&] {
        if (inner && ++depth == 1) inner->setCookie({.name = "inner", .domain = "h"});
        return now;
    });
    inner = &asking;
    asking.setCookie({.name = "outer", .domain = "h"});
    EXPECT_EQ(asking.cookies().size(), 2U);
}

TEST(HTTPCookieStorage, IsOneInTheProcess) {
    EXPECT_NE(HTTPCookieStorage::shared(), nullptr);
    EXPECT_EQ(HTTPCookieStorage::shared(), HTTPCookieStorage::shared());
}

TEST(HTTPCookieStorage, GoesByTheClockOfTheSystem) {
    HTTPCookieStorage storage;
    storage.setCookie({.name = "past", .domain = "h", .expires = HTTPCookie::currentTime() - 1s});
    storage.setCookie({.name = "future", .domain = "h", .expires = HTTPCookie::currentTime() + 24h});
    ASSERT_EQ(storage.cookies().size(), 1U);
    EXPECT_EQ(storage.cookies()[0].name, "future");
}

TEST(HTTPCookieStorage, IsUsedBySeveralThreadsAtOnce) {
    HTTPCookieStorage storage;
    std::vector<std::jthread> threads;
    threads.reserve(4);
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&storage, own = std::to_string(thread)] {
            for (int round = 0; round < 200; ++round) {
                const std::string text = "n" + own + "=" + std::to_string(round) + "; Domain=example.com";
                const std::string_view view = text;
                storage.setCookies({&view, 1}, "http://h" + own + ".example.com/");
                storage.setCookie({.name = "gone" + own, .domain = "example.com", .expires = HTTPCookie::Time::min()});
                EXPECT_NE(storage.cookieHeader("http://example.com/").find("n" + own + "="), std::string::npos);
                EXPECT_LE(storage.cookies().size(), 4U);
            }
        });
    }
    threads.clear();
    EXPECT_EQ(storage.cookies("http://example.com/").size(), 4U);
    for (const auto& cookie : storage.cookies()) EXPECT_EQ(cookie.value, "199");
}

}  // namespace
}  // namespace quorin::foundation
