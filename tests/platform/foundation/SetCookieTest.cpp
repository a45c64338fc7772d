#include "quorin/platform/foundation/CookieDate.hpp"
#include "quorin/platform/foundation/SetCookie.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace quorin::foundation {
namespace {

using namespace std::chrono_literals;
using SameSite = HTTPCookie::SameSite;

SetCookie parsed(const std::string& attributes) {
    static std::string text;  // outlives the loans
    text = "n=v; " + attributes;
    return SetCookie::parse(text).value_or(SetCookie{});
}

struct Row {
    const char* text;
    const char* name;
    const char* value;
};

TEST(SetCookie, HasANameAndAValueCutAtTheFirstSign) {
    for (const auto& row :
         {Row{"n=v", "n", "v"}, Row{"n=", "n", ""}, Row{"n=a=b==", "n", "a=b=="}, Row{" \tn\t = \ta b\t ", "n", "a b"},
          Row{"n=\"a b\"", "n", "\"a b\""}, Row{"n=v;", "n", "v"}, Row{"n=v;;;Secure=x", "n", "v"},
          Row{"n m=\xC3\xA4\xFF", "n m", "\xC3\xA4\xFF"}, Row{"n=a,b", "n", "a,b"}, Row{"n=%3B", "n", "%3B"},
          Row{"n=\"a;b\"", "n", "\"a"}}) {
        const auto cookie = SetCookie::parse(row.text);
        ASSERT_TRUE(cookie) << row.text;
        EXPECT_EQ(cookie->name, row.name);
        EXPECT_EQ(cookie->value, row.value);
    }
}

TEST(SetCookie, WithoutASignOrANameIsIgnored) {
    for (const char* text : {"", ";", "n", "n;Path=/", "=v", " \t=v", "=", " ", "; n=v", "n ; a=b"})
        EXPECT_FALSE(SetCookie::parse(text)) << text;
}

TEST(SetCookie, WithAControlCharacterAnywhereIsIgnored) {
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        const bool isControl = (code < 32 && c != '\t') || code == 127;
        EXPECT_EQ(SetCookie::parse(std::string("n=v") + c).has_value(), !isControl) << code;
        EXPECT_EQ(SetCookie::parse(std::string("n=v; x=") + c).has_value(), !isControl) << code;
    }
}

TEST(SetCookie, WithATabInsideItsTextsIsIgnored) {
    for (const char* text : {"a\tb=v", "n=a\tb", "n=v; Path=/a\tb"}) EXPECT_FALSE(SetCookie::parse(text)) << text;
    for (const char* text : {"\tn\t=\tv\t;\tPath\t=\t/a\t", "n=v; a\tb", "n=v; Path=/a\tb; Path=/c"})
        EXPECT_TRUE(SetCookie::parse(text)) << text;
}

TEST(SetCookie, HasAtMost4096BytesOfNameAndValue) {
    EXPECT_TRUE(SetCookie::parse("name=" + std::string(4092, 'v') + "  ; Path=/a"));
    EXPECT_FALSE(SetCookie::parse("name=" + std::string(4093, 'v')));
    EXPECT_FALSE(SetCookie::parse(std::string(4097, 'n') + "="));
}

TEST(SetCookie, HasAttributesInAnyLetterCase) {
    const auto cookie =
        parsed("SECURE; hTTPoNLY; pATH=/p; DOMAIN=D; mAX-aGE=1; EXPIRES=6 Nov 1994 8:49:37; sAMEsITE=lAX");
    EXPECT_TRUE(cookie.isSecure && cookie.isHTTPOnly);
    EXPECT_EQ(cookie.path, "/p");
    EXPECT_EQ(cookie.domain, "D");
    EXPECT_EQ(cookie.maxAge, 1s);
    EXPECT_EQ(cookie.expires, cookieDate("6 Nov 1994 8:49:37"));
    EXPECT_EQ(cookie.sameSite, SameSite::lax);
}

TEST(SetCookie, HasNoAttributesUnlessTheyAreNamed) {
    const auto cookie = parsed("Securely; Http-Only; Paths=/p; =Secure; Secure Path=/p; \"Secure\"; Max_Age=1");
    EXPECT_FALSE(cookie.isSecure || cookie.isHTTPOnly || cookie.maxAge || cookie.expires || cookie.sameSite);
    EXPECT_EQ(cookie.path, "");
    EXPECT_EQ(cookie.domain, "");
}

TEST(SetCookie, TakesFlagsWithAnyValue) {
    EXPECT_TRUE(parsed("Secure=false").isSecure);
    EXPECT_TRUE(parsed("HttpOnly=").isHTTPOnly);
}

TEST(SetCookie, TakesTheLastOfAnAttribute) {
    EXPECT_EQ(parsed("Path=/a; Path=/b").path, "/b");
    EXPECT_EQ(parsed("Domain=a; Domain=b").domain, "b");
    EXPECT_EQ(parsed("Max-Age=1; Max-Age=2").maxAge, 2s);
    EXPECT_EQ(parsed("Expires=1 Jan 70 0:0:0; Expires=1 Jan 71 0:0:0").expires, cookieDate("1 Jan 71 0:0:0"));
    EXPECT_EQ(parsed("SameSite=Lax; SameSite=Strict").sameSite, SameSite::strict);
    EXPECT_EQ(parsed("SameSite=Lax; SameSite=other").sameSite, std::nullopt);
}

TEST(SetCookie, KeepsAnAttributeWhenALaterOneIsIgnored) {
    EXPECT_EQ(parsed("Domain=a; Domain=; Domain").domain, "a");
    EXPECT_EQ(parsed("Max-Age=1; Max-Age=x").maxAge, 1s);
    EXPECT_EQ(parsed("Expires=1 Jan 70 0:0:0; Expires=never").expires, cookieDate("1 Jan 70 0:0:0"));
    EXPECT_EQ(parsed("Path=/a; Path=/" + std::string(1024, 'b')).path, "/a");
}

TEST(SetCookie, HasThePathOfTheURLUnlessItBeginsWithASlash) {
    for (const char* text : {"Path", "Path=", "Path=a", "Path=\"/a\"", "Path=/a; Path=b", "Path=/a; Path="})
        EXPECT_EQ(parsed(text).path, "") << text;
    EXPECT_EQ(parsed("Path= /a b=c ").path, "/a b=c");
}

TEST(SetCookie, DropsOneLeadingDotOfTheDomain) {
    EXPECT_EQ(parsed("Domain=.a").domain, "a");
    EXPECT_EQ(parsed("Domain=..a").domain, ".a");
    EXPECT_EQ(parsed("Domain=a; Domain=.").domain, "");
}

TEST(SetCookie, IgnoresAttributesBeyond1024Bytes) {
    EXPECT_EQ(parsed("Path=/" + std::string(1023, 'a')).path.size(), 1024U);
    EXPECT_EQ(parsed("Path=/" + std::string(1024, 'a')).path, "");
    EXPECT_FALSE(parsed("Secure=" + std::string(1025, 'a')).isSecure);
}

TEST(SetCookie, HasAnAgeOfDigits) {
    EXPECT_EQ(parsed("Max-Age=0").maxAge, 0s);
    EXPECT_EQ(parsed("Max-Age=-5").maxAge, -5s);
    EXPECT_EQ(parsed("Max-Age=007").maxAge, 7s);
    for (const char* age : {"", "-", "+5", "--5", "5s", "5 5", "1.5", "1e3", "0x5", "five", "5-"})
        EXPECT_EQ(parsed(std::string("Max-Age=") + age).maxAge, std::nullopt) << age;
}

TEST(SetCookie, HasAnAgeThatSaturates) {
    using Limits = std::numeric_limits<std::int64_t>;
    EXPECT_EQ(parsed("Max-Age=" + std::string(1000, '9')).maxAge->count(), Limits::max());
    EXPECT_EQ(parsed("Max-Age=-" + std::string(1000, '9')).maxAge->count(), Limits::min());
    EXPECT_EQ(parsed("Max-Age=" + std::string(1000, '9') + "x").maxAge, std::nullopt);
}

TEST(SetCookie, HasASameSiteOfThree) {
    EXPECT_EQ(parsed("SameSite=NONE").sameSite, SameSite::none);
    EXPECT_EQ(parsed("SameSite=lax").sameSite, SameSite::lax);
    EXPECT_EQ(parsed("SameSite=Strict").sameSite, SameSite::strict);
    for (const char* text : {"SameSite", "SameSite=", "SameSite=Laxer"})
        EXPECT_EQ(parsed(text).sameSite, std::nullopt) << text;
}

}  // namespace
}  // namespace quorin::foundation
