#include "quorin/platform/foundation/CookieOrigin.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin::foundation {
namespace {

TEST(CookieOrigin, IsWhatCookiesGoByOfAURL) {
    const auto origin = CookieOrigin::of("HTTPS://me@Example.COM:8443/A/b?c#d");
    ASSERT_TRUE(origin);
    EXPECT_EQ(origin->host, "example.com");
    EXPECT_FALSE(origin->hasAddress);
    EXPECT_TRUE(origin->isHTTPS);
    EXPECT_EQ(origin->path, "/A/b");
}

TEST(CookieOrigin, IsSecureWithHTTPSAlone) {
    for (const char* url : {"http://h/", "ftp://h/", "httpss://h/", "wss://h/", "//h/"})
        EXPECT_FALSE(CookieOrigin::of(url)->isHTTPS) << url;
}

TEST(CookieOrigin, NeedsAHostNameOrAnAddress) {
    for (const char* url : {"http://h", "http://a_b.c", "http://127.0.0.1/", "http://[::1]/"})
        EXPECT_TRUE(CookieOrigin::of(url)) << url;
    for (const char* url :
         {"", "h", "/p", "http:", "http:///p", "http://:80/", "http://h./", "http://a..b/", "http://a%62/",
          "http://a!b/", "http://a.127.0.0.1/", "http://127.1/", "http://h/{id}", "mailto:a@b"})
        EXPECT_FALSE(CookieOrigin::of(url)) << url;
}

// Requests to each go to an IPv4 address, so one name would stand for many hosts.
TEST(CookieOrigin, IsNoneForAnAddressInHexadecimal) {
    for (const char* url : {"http://0x7f.1/", "http://0X7F000001/", "http://1.0x/", "http://a.0x7f.1/"})
        EXPECT_FALSE(CookieOrigin::of(url)) << url;
    EXPECT_TRUE(CookieOrigin::of("http://0x7g/"));
}

TEST(CookieOrigin, HasAHostOfAtMost253Bytes) {
    EXPECT_TRUE(CookieOrigin::of("http://" + std::string(253, 'a')));
    EXPECT_FALSE(CookieOrigin::of("http://" + std::string(254, 'a')));
}

TEST(CookieOrigin, MatchesItsHostAndTheDomainsAboveIt) {
    const auto origin = CookieOrigin::of("http://a.example.com/");
    for (const char* domain : {"a.example.com", "example.com", "com"})
        EXPECT_TRUE(origin->domainMatches(domain)) << domain;
    for (const char* domain : {"", ".", ".com", ".example.com", "ample.com", "b.a.example.com", "Example.com",
                               "example.co", "example.com.", "b.example.com"})
        EXPECT_FALSE(origin->domainMatches(domain)) << domain;
}

TEST(CookieOrigin, ThatIsAnAddressMatchesItselfAlone) {
    EXPECT_TRUE(CookieOrigin::of("http://127.0.0.1/")->domainMatches("127.0.0.1"));
    EXPECT_FALSE(CookieOrigin::of("http://127.0.0.1/")->domainMatches("0.0.1"));
    EXPECT_TRUE(CookieOrigin::of("http://[0::1]/")->domainMatches("[::1]"));
    EXPECT_FALSE(CookieOrigin::of("http://[::1]/")->domainMatches("::1"));
    EXPECT_FALSE(CookieOrigin::of("http://[v1.a.b]/")->domainMatches("b]"));
}

struct Paths {
    const char* request;
    const char* cookie;
};

TEST(CookieOrigin, MatchesPathsAtItsSlashes) {
    for (const auto& [request, cookie] :
         {Paths{"", "/"}, Paths{"/", "/"}, Paths{"/a", "/"}, Paths{"/a", "/a"}, Paths{"/a/", "/a"}, Paths{"/a/b", "/a"},
          Paths{"/a/b", "/a/"}, Paths{"//", "/"}, Paths{"/a/b", "/a/b"}, Paths{"/%41", "/%41"}})
        EXPECT_TRUE(CookieOrigin::of(std::string("http://h") + request)->pathMatches(cookie))
            << request << " " << cookie;
    for (const auto& [request, cookie] :
         {Paths{"", "/a"}, Paths{"/", "/a"}, Paths{"/ab", "/a"}, Paths{"/a", "/a/"}, Paths{"/a", "/a/b"},
          Paths{"/A", "/a"}, Paths{"/b/a", "/a"}, Paths{"/%41", "/A"}})
        EXPECT_FALSE(CookieOrigin::of(std::string("http://h") + request)->pathMatches(cookie))
            << request << " " << cookie;
}

TEST(CookieOrigin, HasItsFolderAsTheDefaultPath) {
    for (const auto& [request, folder] :
         {Paths{"", "/"}, Paths{"/", "/"}, Paths{"/a", "/"}, Paths{"/a/", "/a"}, Paths{"/a/b", "/a"}, Paths{"//", "/"},
          Paths{"/a//", "/a/"}, Paths{"/a/b/c?d/e#f/g", "/a/b"}, Paths{"?a/b", "/"}})
        EXPECT_EQ(CookieOrigin::of(std::string("http://h") + request)->defaultPath(), folder) << request;
}

}  // namespace
}  // namespace quorin::foundation
