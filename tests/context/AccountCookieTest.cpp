#include "quorin/context/AccountCookie.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quorin {
namespace {

using foundation::HTTPCookie;

skell::Response setting(std::vector<std::string> setCookies, std::string url = "https://example.com/a/b") {
    skell::Response::Content content{.status = 200, .url = std::move(url)};
    for (auto& value : setCookies) content.headers.push_back({"set-cookie", std::move(value)});
    return skell::Response(std::move(content));
}

std::optional<std::string> domainFor(const std::string& domain) {
    const auto cookie = accountCookie("abc", domain);
    return cookie ? std::optional(cookie->domain) : std::nullopt;
}

std::optional<std::string> valueFor(const std::string& kova) {
    const auto cookie = accountCookie(kova, "example.com");
    return cookie ? std::optional(cookie->value) : std::nullopt;
}

TEST(AccountCookie, IsForTheHostAndPathOfItsURL) {
    EXPECT_EQ(accountCookie("abc", "https://API.Example.com:8443/v1/config?x=1"),
              (HTTPCookie{.name = "KOVA", .value = "abc", .domain = "api.example.com", .path = "/v1"}));
}

TEST(AccountCookie, IsForABareHost) {
    EXPECT_EQ(accountCookie("abc", "example.com"),
              (HTTPCookie{.name = "KOVA", .value = "abc", .domain = "example.com", .path = "/"}));
    EXPECT_EQ(domainFor(".example.com"), "example.com");
    EXPECT_EQ(domainFor("localhost"), "localhost");
    EXPECT_EQ(domainFor("192.0.2.7"), "192.0.2.7");
    EXPECT_EQ(domainFor("[2001:db8::1]"), "[2001:db8::1]");
    EXPECT_EQ(domainFor(".EXAMPLE.com"), "example.com");
}

TEST(AccountCookie, IsNotMadeForADomainThatIsNoHostAndNoURL) {
    for (const char* domain : {"",
                               " ",
                               ".",
                               "..example.com",
                               "example.com.",
                               "a..b",
                               "no host",
                               "example.com/path",
                               "example.com:8080",
                               "localhost:1",
                               "https://",
                               "https:///x",
                               "//example.com/",
                               "user@example.com",
                               "[::1",
                               "::1",
                               "[zz]",
                               "[::1]:80]",
                               "[::1]/]",
                               "[]",
                               "https://exa mple.com/",
                               "https://ex%41mple.com/",
                               "b\u00fccher.de",
                               "mailto:a@b"})
        EXPECT_EQ(domainFor(domain), std::nullopt) << domain;
}

TEST(AccountCookie, IsAbsentWithoutAnAccountOrADomain) {
    EXPECT_FALSE(accountCookie(std::nullopt, "example.com"));
    EXPECT_FALSE(accountCookie("abc", std::nullopt));
}

TEST(AccountCookie, CarriesWhatStandsBeforeASemicolon) {
    EXPECT_EQ(accountCookie("abc; Domain=com; Path=/x; Secure; Max-Age=1", "https://example.com/"),
              (HTTPCookie{.name = "KOVA", .value = "abc", .domain = "example.com", .path = "/"}));
    EXPECT_EQ(valueFor("a=b; c"), "a=b");
    EXPECT_EQ(valueFor(";x"), "");
}

TEST(AccountCookie, IsNotMadeOfAControlCharacter) {
    for (const std::string& kova : {std::string("a\rb"), std::string("a\nSet-Cookie: x=y"), std::string("a\0b", 3),
                                    std::string("\ta"), std::string("a\x7f"), std::string("a;\n")})
        EXPECT_EQ(valueFor(kova), std::nullopt) << kova;
}

TEST(AccountCookie, KeepsQuotesCommasAndBytesBeyondASCII) {
    for (const std::string kova : {"\"a\"", "a,b", "\xf0\x9f\x98\x80", "\xff\xfe", "a b"})
        EXPECT_EQ(valueFor(kova), kova);
}

TEST(AccountCookie, IsNotMadeOfMoreThanACookieHolds) {
    EXPECT_TRUE(valueFor(std::string(4092, 'x')));
    EXPECT_FALSE(valueFor(std::string(4093, 'x')));
    EXPECT_FALSE(valueFor(std::string(1 << 20, 'x')));
}

TEST(AccountCookie, IsPickedOutOfAResponse) {
    const auto cookie = accountCookieOf(setting({"a=1", "KOVA=one; Path=/; HttpOnly", "KOVA=two"}));
    ASSERT_TRUE(cookie);
    EXPECT_EQ(cookie->value, "one");
    EXPECT_EQ(cookie->path, "/");
    EXPECT_TRUE(cookie->isHTTPOnly);
}

TEST(AccountCookie, IsNoCookieOfAnotherNameOrCase) {
    EXPECT_FALSE(accountCookieOf(setting({"a=1", "kova=2", "KOVA2=3", "Kova=4"})));
    EXPECT_FALSE(accountCookieOf(setting({})));
}

TEST(AccountCookie, IsNotPickedWhereTheServerMayNotSetIt) {
    EXPECT_FALSE(accountCookieOf(setting({"KOVA=1; Domain=com"})));
    EXPECT_FALSE(accountCookieOf(setting({"KOVA=1"}, "")));
    EXPECT_EQ(accountCookieOf(setting({"KOVA=1; Domain=other.com", "KOVA=2"}))->value, "2");
}

TEST(CookieKeys, NameTheAccountCookie) { EXPECT_EQ(CookieKeys::kova, "KOVA"); }

}  // namespace
}  // namespace quorin
