#include "tests/platform/skell/Requests.hpp"
#include "tests/support/Nginx.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin::skell {
namespace {

using support::Nginx;

/// Against a real server, which all the tests share.
class Served : public testing::Test {
protected:
    static void SetUpTestSuite() { nginx_ = new Nginx; }
    static void TearDownTestSuite() {
        delete nginx_;
        nginx_ = nullptr;
    }

    static Request trusting(const std::string& host, std::string_view path) {
        return with({.caFile = nginx_->caFile()}, Request::GET(nginx_->url(host, path)));
    }

    static SkellError refusedBy(const Request& request) { return failureOf(performed(request)); }

    static inline Nginx* nginx_ = nullptr;
};

class Plain : public Served {};
class TLS : public Served {};

TEST_F(Plain, YieldsEveryStatus) {
    EXPECT_EQ(performed(nginx_->url("plain", "/object.json"))->body(), Nginx::object);
    EXPECT_EQ(performed(nginx_->url("plain", "/missing"))->status(), 404);
    EXPECT_EQ(performed(nginx_->url("plain", "/failing"))->status(), 500);
}

TEST_F(Plain, DecodesGzip) {
    const auto response = performed(nginx_->url("plain", "/large.json"));
    EXPECT_EQ(response->header("Content-Encoding"), "gzip");
    EXPECT_EQ(response->body(), Nginx::large());
}

TEST_F(Plain, FollowsRedirects) {
    const auto response = performed(nginx_->url("plain", "/moved"));
    EXPECT_EQ(response->url(), nginx_->url("plain", "/object.json"));
    EXPECT_EQ(response->body(), Nginx::object);
    EXPECT_EQ(failureKind(nginx_->url("plain", "/circle")), "redirects");
}

TEST_F(TLS, TrustsTheAuthoritiesOfTheFile) {
    EXPECT_EQ(performed(trusting("good", "/object.json"))->body(), Nginx::object);
}

TEST_F(TLS, RunsManyRequestsOverOneConnection) {
    for (int i = 0; i < 20; ++i) ASSERT_EQ(performed(trusting("good", "/large.json"))->body(), Nginx::large());
}

TEST_F(TLS, SpeaksHTTP2WithEachMethodButCONNECT) {
    for (const std::string_view name : HTTPMethod::rawValues) {
        Request request = trusting("good", "/object.json");
        request.method = *HTTPMethod::fromRawValue(name);
        const auto response = performed(request);
        ASSERT_TRUE(response) << name;
        EXPECT_EQ(response->header("X-Protocol"), name == "CONNECT" ? "HTTP/1.1" : "HTTP/2.0") << name;
    }
}

TEST_F(TLS, DoesNotTrustAnUnknownAuthority) {
    EXPECT_EQ(failureKind(nginx_->url("good", "/object.json")), "tls");
    EXPECT_EQ(failureKind(trusting("selfsigned", "/object.json")), "tls");
}

TEST_F(TLS, DoesNotTrustAnExpiredCertificateAndSaysSo) {
    const SkellError error = refusedBy(trusting("expired", "/object.json"));
    EXPECT_EQ(error.kind, SkellError::Kind::tls);
    EXPECT_NE(error.message.find("expired"), std::string::npos) << error.message;
}

TEST_F(TLS, DoesNotTrustTheCertificateOfAnotherHost) {
    EXPECT_EQ(failureKind(trusting("wronghost", "/object.json")), "tls");
}

TEST_F(TLS, IsNotSpokenInAVersionBefore12) { EXPECT_EQ(failureKind(trusting("outdated", "/object.json")), "tls"); }

TEST_F(TLS, FailsWithoutTheFileOfAuthorities) {
    const Request request = Request::GET(nginx_->url("good", "/object.json"));
    EXPECT_EQ(failureKind(with({.caFile = "/no/such/file.pem"}, request)), "tls");
}

TEST_F(TLS, IsNotLeftByARedirect) {
    const SkellError error = refusedBy(trusting("good", "/down"));
    EXPECT_EQ(error.kind, SkellError::Kind::redirects);
    EXPECT_NE(error.message.find("https to http"), std::string::npos) << error.message;
}

}  // namespace
}  // namespace quorin::skell
