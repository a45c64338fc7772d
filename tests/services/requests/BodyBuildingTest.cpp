#include "tests/services/requests/Building.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>

namespace quorin {
namespace {

using Type = skell::RequestBodyType;

/// The type and the bytes: "JSON {}"; "none" where there is no body.
std::string bodyOf(const Skell& request) {
    if (!request.body) return "none";
    return std::string(request.body->type() ? request.body->type()->rawValue() : "bytes") + " " + request.body->text();
}

class RequestBodies : public Building {
protected:
    std::string body(HTTPMethod method, const StringMap& headers, const std::optional<DocumentMap>& content) const {
        return bodyOf(built({.requestURL = "http://h/",
                             .requestMethod = method,
                             .requestHeaders = headers,
                             .dictionaryRepresentation = content}));
    }

    /// Expects this body with every method, or with every one but POST, and none without a content.
    void expectAll(const StringMap& headers, const std::string& expected,
                   const std::optional<std::string>& ofPOST = {}) const {
        for (const auto name : HTTPMethod::rawValues) {
            const auto method = *HTTPMethod::fromRawValue(name);
            EXPECT_EQ(body(method, headers, content_), method == HTTPMethod::POST && ofPOST ? *ofPOST : expected)
                << name;
            EXPECT_EQ(body(method, headers, std::nullopt), "none") << name;
        }
    }

    const DocumentMap content_{{"b", "x y"}, {"a", 1}};
};

TEST_F(RequestBodies, AreJSONWithEveryMethod) {
    expectAll({{"Content-Type", "application/json"}}, R"(JSON {"a":1,"b":"x y"})");
}

TEST_F(RequestBodies, AreXMLWithEveryMethod) {
    expectAll({{"Content-Type", "application/xml"}}, "XML <request><a>1</a><b>x y</b></request>");
}

TEST_F(RequestBodies, AreAFormWithPOSTAlone) {
    expectAll({{"Content-Type", "application/x-www-form-urlencoded"}}, "none", "urlEncoded a=1&b=x+y");
}

TEST_F(RequestBodies, AreNoneWithAnyOtherMediaType) {
    for (const char* type :
         {"Application/JSON", "application/json; charset=utf-8", "application/json;charset=utf-8", " application/json",
          "application/json ", "APPLICATION/XML", "text/xml", "application/X-www-form-urlencoded",
          "application/x-www-form-urlencoded; charset=utf-8", "multipart/form-data", "json", ""})
        expectAll({{"Content-Type", type}}, "none");
}

TEST_F(RequestBodies, AreNoneWithoutAContentType) {
    expectAll({}, "none");
    expectAll({{"content-type", "application/json"}, {"Accept", "application/json"}}, "none");
}

TEST_F(RequestBodies, AreEmptyForAnEmptyMap) {
    EXPECT_EQ(body(HTTPMethod::PUT, {{"Content-Type", "application/json"}}, DocumentMap()), "JSON {}");
    EXPECT_EQ(body(HTTPMethod::PUT, {{"Content-Type", "application/xml"}}, DocumentMap()), "XML <request/>");
    EXPECT_EQ(body(HTTPMethod::POST, {{"Content-Type", "application/x-www-form-urlencoded"}}, DocumentMap()),
              "urlEncoded ");
    EXPECT_EQ(body(HTTPMethod::PUT, {{"Content-Type", "application/x-www-form-urlencoded"}}, DocumentMap()), "none");
}

TEST_F(RequestBodies, KeepTheirContent) {
    const Skell request =
        built({.requestHeaders = {{"Content-Type", "application/json"}}, .dictionaryRepresentation = content_});
    ASSERT_TRUE(request.body);
    EXPECT_EQ(request.body->type(), Type::JSON);
    EXPECT_EQ(request.body->content(), content_);
}

TEST_F(RequestBodies, AreAsTheServiceSays) {
    const std::tuple<HTTPMethod, ContentType, const char*> cases[] = {
        {HTTPMethod::GET, ContentType::urlEncoded, "none"},
        {HTTPMethod::PUT, ContentType::urlEncoded, "none"},
        {HTTPMethod::POST, ContentType::urlEncoded, "urlEncoded a=1&b=x+y"},
        {HTTPMethod::GET, ContentType::JSON, R"(JSON {"a":1,"b":"x y"})"},
        {HTTPMethod::POST, ContentType::XML, "XML <request><a>1</a><b>x y</b></request>"},
    };
    for (const auto& [method, type, expected] : cases) {
        const WebService service{.url = "http://h/", .method = method, .contentTypeHeader = type};
        EXPECT_EQ(bodyOf(built({.dictionaryRepresentation = content_}, service)), expected);
        EXPECT_EQ(bodyOf(built({}, service)), "none");
    }
}

TEST_F(RequestBodies, AreOfTheTypeThatTheCallerNamesInPlaceOfTheServices) {
    const WebService service{.method = HTTPMethod::GET, .contentTypeHeader = ContentType::JSON};
    const auto bodyWith = [&](const char* type) {
        return bodyOf(
            built({.headers = StringMap{{"Content-Type", type}}, .dictionaryRepresentation = content_}, service));
    };
    EXPECT_EQ(bodyWith("application/xml"), "XML <request><a>1</a><b>x y</b></request>");
    EXPECT_EQ(bodyWith("application/x-www-form-urlencoded"), "none");
    EXPECT_EQ(bodyWith("text/plain"), "none");
}

}  // namespace
}  // namespace quorin
