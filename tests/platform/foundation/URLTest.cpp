#include "quorin/platform/foundation/URL.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin::foundation {
namespace {

TEST(URL, IsTakenApart) {
    const auto url = URL::parse("HTTPS://User@Example.COM:8443/A/b%20c?x=1#end");
    ASSERT_TRUE(url);
    EXPECT_EQ(url->scheme, "https");
    EXPECT_EQ(url->host, "example.com");
    EXPECT_FALSE(url->hasAddress);
    EXPECT_EQ(url->path, "/A/b%20c");
    EXPECT_EQ(url->query, "x=1");
}

TEST(URL, MayBeRelativeOrEmpty) {
    const auto path = URL::parse("/p");
    ASSERT_TRUE(path);
    EXPECT_FALSE(path->scheme || path->host || path->query);
    EXPECT_EQ(path->path, "/p");
    EXPECT_TRUE(URL::parse(""));
    EXPECT_EQ(URL::parse("//host")->host, "host");
    EXPECT_EQ(URL::parse("mailto:a@b")->path, "a@b");
}

TEST(URL, TellsAnEmptyQueryFromNone) {
    EXPECT_EQ(URL::parse("/p?")->query, "");
    EXPECT_EQ(URL::parse("/p#a?b")->query, std::nullopt);
}

TEST(URL, HasAHostThatIsAnAddress) {
    EXPECT_TRUE(URL::parse("http://127.0.0.1/")->hasAddress);
    const auto six = URL::parse("http://[0:0:0:0:0:0:0:1]:80/p");
    EXPECT_TRUE(six->hasAddress);
    EXPECT_EQ(six->host, "[::1]");
    EXPECT_EQ(six->path, "/p");
    EXPECT_EQ(URL::parse("http://[V1.x]/")->host, "[v1.x]");
}

TEST(URL, KeepsEmptySegmentsOfThePath) { EXPECT_EQ(URL::parse("http://h//a//?q")->path, "//a//"); }

TEST(URL, DoesNotParseWhatMayNotStandInOne) {
    for (const char* text : {"a b", "http://h/{id}", "http://h/ä", "http://h/%4", "http://h/%zz", "http://[::1", "::"})
        EXPECT_FALSE(URL::parse(text)) << text;
    EXPECT_FALSE(URL::parse(std::string("a\0b", 3)));
}

TEST(URL, OfMillionsOfPartsParses) {
    std::string text = "http://h";
    for (int i = 0; i < 1'000'000; ++i) text += "/%41";
    EXPECT_EQ(URL::parse(text)->path.size(), 4'000'000U);
}

TEST(HostName, IsLabelsBetweenSingleDots) {
    for (const char* text : {"example.com", "localhost", "a_b.x-y.Z9", "10.0.0.1"})
        EXPECT_TRUE(isHostName(text)) << text;
    for (const char* text : {"", ".", ".com", "com.", "a..b", "a b", "a:1", "[::1]", "ex%61mple", "ä.de"})
        EXPECT_FALSE(isHostName(text)) << text;
}

std::string appended(std::string url, std::string_view param = "a=1") {
    append(url, param);
    return url;
}

TEST(Append, BeginsAQueryOrGoesOnWithIt) {
    EXPECT_EQ(appended("/p"), "/p?a=1");
    EXPECT_EQ(appended("/p?x=2"), "/p?x=2&a=1");
    EXPECT_EQ(appended("/p?"), "/p?&a=1");
    EXPECT_EQ(appended(""), "?a=1");
    EXPECT_EQ(appended("http://h"), "http://h?a=1");
}

TEST(Append, WritesBehindAFragment) {
    EXPECT_EQ(appended("/p#f"), "/p#f?a=1");
    EXPECT_EQ(appended("/p?x#f"), "/p?x#f&a=1");
    EXPECT_EQ(appended("/p#f?x"), "/p#f?x?a=1");
}

TEST(Append, LeavesTextThatIsNoURL) {
    for (const std::string text : {"http://h/{id}", "/a b", "/%zz", "/\xC3\xA9", "http://h:port/"}) {
        EXPECT_EQ(appended(text), text);
    }
}

TEST(Append, TakesItsTextAsItStands) {
    EXPECT_EQ(appended("/p", ""), "/p?");
    EXPECT_EQ(appended("/p", "&a b#{%"), "/p?&a b#{%");
}

}  // namespace
}  // namespace quorin::foundation
