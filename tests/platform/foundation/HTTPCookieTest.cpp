#include "quorin/platform/foundation/CookieOrigin.hpp"
#include "quorin/platform/foundation/HTTPCookie.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::foundation {
namespace {

using namespace std::chrono_literals;
using Time = HTTPCookie::Time;
using SameSite = HTTPCookie::SameSite;

constexpr Time now(1'700'000'000s);

std::vector<HTTPCookie> cookies(const std::vector<std::string_view>& texts, std::string_view url, Time moment = now) {
    return HTTPCookie::cookiesWithResponseHeaderFields(texts, url, moment);
}

/// The end of a cookie with these attributes, when it has one.
std::optional<Time> endOf(std::string_view attributes, Time moment = now) {
    return cookies({"n=v; " + std::string(attributes)}, "http://h/", moment).at(0).expires;
}

TEST(HTTPCookie, HasAllThatAServerSays) {
    const auto all = cookies({"n=v; Domain=.Example.com; Path=/p; Secure; HttpOnly; SameSite=Lax; Max-Age=5"},
                             "http://a.example.com/");
    EXPECT_EQ(all, std::vector{(HTTPCookie{.name = "n",
                                           .value = "v",
                                           .domain = "example.com",
                                           .path = "/p",
                                           .isHostOnly = false,
                                           .isSecure = true,
                                           .isHTTPOnly = true,
                                           .sameSite = SameSite::lax,
                                           .expires = now + 5s})});
}

TEST(HTTPCookie, IsOfItsHostFolderAndSessionUnlessAServerSaysMore) {
    const auto all = cookies({"n=v"}, "http://A.example.com/p/q?r");
    EXPECT_EQ(all, std::vector{(HTTPCookie{.name = "n", .value = "v", .domain = "a.example.com", .path = "/p"})});
}

TEST(HTTPCookie, StandsInTheOrderOfTheHeadersWithoutTheIgnored) {
    const auto all = cookies({"a=1", "ignored", "b=2; Domain=other.com", "c=3", "a=4; Max-Age=0"}, "http://h.com/");
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].value, "1");
    EXPECT_EQ(all[1].value, "3");
    EXPECT_EQ(all[2].value, "4");
}

TEST(HTTPCookie, IsNotSetByURLsWithoutAHost) {
    for (const char* url : {"", "/p", "h.com", "http:///p", "http://h h/", "http://h./", "http://a%62/", "file:///p"})
        EXPECT_EQ(cookies({"n=v"}, url).size(), 0U) << url;
}

TEST(HTTPCookie, EndsWithItsAgeRatherThanItsDate) {
    EXPECT_EQ(endOf("Max-Age=5; Expires=1 Jan 2030 0:0:0"), now + 5s);
    EXPECT_EQ(endOf("Expires=1 Jan 2030 0:0:0; Max-Age=5"), now + 5s);
    EXPECT_EQ(endOf("Expires=1 Jan 1970 0:0:0; Max-Age=x"), Time());
    EXPECT_EQ(endOf("Max-Age=; Expires=never"), std::nullopt);
}

TEST(HTTPCookie, OfNoAgeHasEnded) {
    for (const char* age : {"0", "-0", "-1", "-99999999999999999999"})
        EXPECT_EQ(endOf("Max-Age=" + std::string(age)), Time()) << age;
}

TEST(HTTPCookie, OfAHugeAgeEndsWithAllTime) {
    for (const Time moment : {Time(), now, Time::max() - 1s, Time::max()})
        for (const char* age : {"9223372036854775807", "99999999999999999999"})
            EXPECT_EQ(endOf("Max-Age=" + std::string(age), moment), Time::max()) << age;
    EXPECT_EQ(endOf("Max-Age=5", Time::max()), Time::max());
    EXPECT_EQ(endOf("Max-Age=5", Time::min()), Time::min() + 5s);
    EXPECT_EQ(endOf("Max-Age=5", Time::max() - 10s), Time::max() - 5s);
}

TEST(HTTPCookie, HasAPathOfAtMost1024Bytes) {
    const std::string longest = "http://h/" + std::string(1023, 'x');
    EXPECT_EQ(cookies({"a=1"}, longest + "/p").size(), 1U);
    EXPECT_EQ(cookies({"a=1"}, longest + "x/p").size(), 0U);
    EXPECT_EQ(cookies({"a=1; Path=/"}, longest + "x/p").size(), 1U);
}

struct DomainRow {
    const char* url;
    const char* attribute;
    const char* domain;  ///< of the cookie, or nothing when it is ignored
    bool isHostOnly;
};

void expectDomains(std::initializer_list<DomainRow> rows) {
    for (const auto& row : rows) {
        const auto all = cookies({"n=v; Domain=" + std::string(row.attribute)}, row.url);
        ASSERT_EQ(all.size(), row.domain ? 1U : 0U) << row.url << " " << row.attribute;
        if (!row.domain) continue;
        EXPECT_EQ(all[0].domain, row.domain) << row.url << " " << row.attribute;
        EXPECT_EQ(all[0].isHostOnly, row.isHostOnly) << row.url << " " << row.attribute;
    }
}

TEST(HTTPCookie, IsSetForTheHostAndDomainsAboveIt) {
    expectDomains({{"http://a.example.com/", "", "a.example.com", true},
                   {"http://a.example.com/", ".", "a.example.com", true},
                   {"http://a.example.com/", "example.com; Domain=.", "a.example.com", true},
                   {"http://a.example.com/", "a.example.com", "a.example.com", false},
                   {"http://a.example.com/", ".EXAMPLE.Com", "example.com", false},
                   {"http://b.a.example.co.uk/", "example.co.uk", "example.co.uk", false},
                   {"http://b.a.unknowntld/", "a.unknowntld", "a.unknowntld", false}});
}

TEST(HTTPCookie, IsNotSetForOtherDomains) {
    expectDomains({{"http://a.example.com/", "b.example.com", nullptr, true},
                   {"http://a.example.com/", "b.a.example.com", nullptr, true},
                   {"http://a.example.com/", "ample.com", nullptr, true},
                   {"http://a.example.com/", "other.com", nullptr, true},
                   {"http://a.example.com/", "example.com.", nullptr, true},
                   {"http://a.example.com/", "..example.com", nullptr, true},
                   {"http://a.example.com/", "\xC3\xA4.com", nullptr, true},
                   {"http://a.example.com/", "exa\tmple.com", nullptr, true}});
}

TEST(HTTPCookie, IsNotSetForPublicSuffixesButByThemselves) {
    expectDomains({{"http://example.com/", "com", nullptr, true},
                   {"http://example.co.uk/", "co.uk", nullptr, true},
                   {"http://example.co.uk/", "uk", nullptr, true},
                   {"http://me.github.io/", "github.io", nullptr, true},
                   {"http://a.unknowntld/", "UnknownTLD", nullptr, true},
                   {"http://a.foo.ck/", "foo.ck", nullptr, true},
                   {"http://a.www.ck/", "www.ck", "www.ck", false},
                   {"http://com/", "com", "com", true},
                   {"http://co.uk/", ".co.uk", "co.uk", true},
                   {"http://github.io/", "GitHub.io", "github.io", true},
                   {"http://localhost/", "localhost", "localhost", true},
                   {"http://me.github.io/", "me.github.io", "me.github.io", false}});
}

TEST(HTTPCookie, OfAnAddressIsForNoOtherHost) {
    expectDomains({{"http://127.0.0.1/", "", "127.0.0.1", true},
                   {"http://127.0.0.1/", ".127.0.0.1", "127.0.0.1", false},
                   {"http://127.0.0.1/", "0.0.1", nullptr, true},
                   {"http://127.0.0.1/", "1", nullptr, true},
                   {"http://[0:0::1]/", "", "[::1]", true},
                   {"http://[::1]:80/", "[::1]", "[::1]", false},
                   {"http://[::1]/", "::1", nullptr, true},
                   {"http://[FE80::A]/", "[FE80::A]", "[fe80::a]", false}});
}

TEST(HTTPCookie, HasNoPathWiderThanItsURLWhenTheAttributeIsNone) {
    EXPECT_EQ(cookies({"n=v; Path=x"}, "http://h/a/b").at(0).path, "/a");
    EXPECT_EQ(cookies({"n=v; Path=/a; Path="}, "http://h/b/c").at(0).path, "/b");
    EXPECT_EQ(cookies({"n=v; Path=/elsewhere"}, "http://h/a/b").at(0).path, "/elsewhere");
}

TEST(HTTPCookie, ComesOfManyHostileHeadersAtOnce) {
    std::string attributes;
    for (int i = 0; i < 5000; ++i) attributes += ";Expires=1 2 3 4 5 6 7;Domain=com;Path=/\xFF";
    const std::string text = "n=v; " + attributes;
    EXPECT_EQ(cookies(std::vector<std::string_view>(10, text), "http://a.example.com/").size(), 0U);
}

/// Pieces that the parser looks for, and now and then any bytes.
rc::Gen<std::string> anyHeader() {
    using rc::gen::element;
    const auto piece = rc::gen::weightedOneOf<std::string>({
        {1, rc::gen::arbitrary<std::string>()},
        {4, rc::gen::map(rc::gen::arbitrary<char>(), [](char c) { return std::string(1, c); })},
        {20,
         element<std::string>("\t", " ", "=", ";", ".", "/", "com", "example.com", "EXAMPLE.", "a.", "\xFF", "co.uk")},
        {20, element<std::string>(";Domain=", ";Domain=.", ";Path=", ";Path=/", ";Domain=127.0.0.1;",
                                  ";Domain=example.com;", ";Domain=co.uk;", ";Domain=[::1];")},
    });
    const auto some = rc::gen::resize(10, rc::gen::container<std::vector<std::string>>(piece));
    return rc::gen::map(some, [](const auto& pieces) {
        std::string text;
        for (const auto& each : pieces) text += each;
        return text;
    });
}

bool hasControl(const HTTPCookie& cookie) {
    return std::ranges::any_of(cookie.name + cookie.value + cookie.path + cookie.domain,
                               [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; });
}

void assertSound(const HTTPCookie& cookie, const CookieOrigin& origin) {
    RC_ASSERT(!hasControl(cookie));
    RC_ASSERT(!cookie.name.empty() && cookie.path.starts_with('/'));
    RC_ASSERT(origin.domainMatches(cookie.domain));
    RC_ASSERT(!cookie.isHostOnly || cookie.domain == origin.host);
}

RC_GTEST_PROP(HTTPCookie, OfAnyBytesHasNoControlCharacterAndTheDomainOfItsHost, ()) {
    const auto begin = *rc::gen::element<std::string>("", "n=v", "n=v", "n=v;x");
    const std::string text = begin + *anyHeader();
    for (const char* url : {"http://a.example.com/x/y", "http://com/", "https://127.0.0.1", "http://[::1]/"}) {
        const auto all = cookies({text}, url);
        RC_CLASSIFY(!all.empty());
        for (const auto& cookie : all) assertSound(cookie, CookieOrigin::of(url).value());
    }
}

}  // namespace
}  // namespace quorin::foundation
