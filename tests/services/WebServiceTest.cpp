#include "quorin/services/WebService.hpp"

#include "tests/table/Documents.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quorin {
namespace {

constexpr auto login = R"({"name": "login", "url": {"value": "https://x.example/{id}"}, "method": "POST",
    "header": {"Accept": "application/xml", "Content-Type": "application/json"}})";

/// The document of a service with one more member in place of the good one.
std::optional<WebService> serviceWith(std::string_view name, std::string_view value) {
    const json::ParseResult parsed = json::parse(value);
    return WebService::fromJSON(object(login).with(name, *parsed.value()));
}

std::optional<WebService> serviceWithout(std::string_view name) {
    DocumentMap rest;
    const DocumentMap all = object(login);
    for (const auto& [member, value] : all) {
        if (member != name) rest = rest.with(member, value);
    }
    return WebService::fromJSON(rest);
}

TEST(WebServiceDocument, GivesEveryField) {
    const auto service = readDocument<WebService>(login);
    ASSERT_TRUE(service);
    EXPECT_EQ(service->name, "login");
    EXPECT_EQ(service->url, "https://x.example/{id}");
    EXPECT_EQ(service->method, HTTPMethod::POST);
    EXPECT_EQ(service->acceptHeader, ContentType::XML);
    EXPECT_EQ(service->contentTypeHeader, ContentType::JSON);
}

TEST(WebServiceDocument, NeedsAName) {
    EXPECT_FALSE(serviceWithout("name"));
    for (const auto value : {"1", "null", "{}", "[]", "true"}) EXPECT_FALSE(serviceWith("name", value)) << value;
    EXPECT_EQ(serviceWith("name", R"("")")->name, "");
}

TEST(WebServiceDocument, NeedsAnObjectWithTheURL) {
    EXPECT_FALSE(serviceWithout("url"));
    for (const auto value :
         {R"("https://x.example")", "null", "[]", "{}", R"({"value": 1})", R"({"value": null})", R"({"Value": "u"})"})
        EXPECT_FALSE(serviceWith("url", value)) << value;
}

TEST(WebServiceDocument, TakesTheURLAsItStands) {
    EXPECT_EQ(serviceWith("url", R"({"value": " no url "})")->url, " no url ");
}

TEST(WebServiceDocument, NeedsAMethod) {
    EXPECT_FALSE(serviceWithout("method"));
    for (const auto value : {R"("FETCH")", R"("")", R"(" GET")", "1", "null", R"(["GET"])"})
        EXPECT_FALSE(serviceWith("method", value)) << value;
}

TEST(WebServiceDocument, TakesMethodsInAnyLetterCase) {
    EXPECT_EQ(serviceWith("method", R"("post")")->method, HTTPMethod::POST);
    EXPECT_EQ(serviceWith("method", R"("Get")")->method, HTTPMethod::GET);
    EXPECT_EQ(serviceWith("method", R"("oPTIONS")")->method, HTTPMethod::OPTIONS);
}

TEST(WebServiceDocument, FoldsAsciiLettersOnly) { EXPECT_FALSE(serviceWith("method", "\"OPT\xC4\xB1ONS\"")); }

TEST(WebServiceDocument, UsesTheFormEncodingWithoutAHeader) {
    const auto service = serviceWithout("header");
    EXPECT_EQ(service->contentTypeHeader, ContentType::urlEncoded);
    EXPECT_FALSE(service->acceptHeader);
    EXPECT_EQ(service->headers(), (StringMap{{"Content-Type", "application/x-www-form-urlencoded"}}));
}

TEST(WebServiceDocument, IsNeverRejectedForItsHeader) {
    for (const auto value : {"null", "1", "[]", R"("application/json")", "{}", R"({"Accept": 1, "Content-Type": null})",
                             R"({"accept": "application/json", "content-type": "application/json"})",
                             R"({"Accept": "text/html", "Content-Type": "text/html"})"}) {
        const auto service = serviceWith("header", value);
        ASSERT_TRUE(service) << value;
        EXPECT_EQ(service->contentTypeHeader, ContentType::urlEncoded) << value;
        EXPECT_FALSE(service->acceptHeader) << value;
    }
}

TEST(WebServiceDocument, TakesMediaTypesInAnyLetterCase) {
    const auto service = serviceWith("header", R"({"Content-Type": "APPLICATION/JSON", "Accept": "Application/Xml"})");
    EXPECT_EQ(service->contentTypeHeader, ContentType::JSON);
    EXPECT_EQ(service->acceptHeader, ContentType::XML);
}

TEST(WebServiceDocument, KeepsOneMediaTypeWhenTheOtherIsUnknown) {
    const auto service = serviceWith("header", R"({"Content-Type": "APPLICATION/JSON", "Accept": "text/html"})");
    EXPECT_EQ(service->contentTypeHeader, ContentType::JSON);
    EXPECT_FALSE(service->acceptHeader);
    EXPECT_EQ(serviceWith("header", R"({"Accept": "application/json"})")->acceptHeader, ContentType::JSON);
}

TEST(WebServiceArchive, IsFlat) {
    EXPECT_EQ(archived<WebService>(login), R"({"Accept":"application/xml","Content-Type":"application/json",)"
                                           R"("method":"POST","name":"login","url":"https://x.example/{id}"})");
}

TEST(WebServiceArchive, LeavesOutAnAbsentAccept) {
    EXPECT_EQ(json::print(WebService{.name = "a", .url = "u"}.encode()),
              R"({"Content-Type":"application/x-www-form-urlencoded","method":"GET","name":"a","url":"u"})");
}

TEST(WebServiceArchive, NeverHoldsAHeaderOrAValue) {
    const DocumentMap encoded = readDocument<WebService>(login)->encode();
    EXPECT_FALSE(encoded.contains("header"));
    EXPECT_FALSE(encoded.contains("value"));
}

TEST(WebServiceArchive, GivesEveryField) {
    const auto service = readArchive<WebService>(
        R"({"name": "a", "url": "u", "method": "PUT", "Content-Type": "application/xml", "Accept": "application/json"})");
    EXPECT_EQ(service, (WebService{"a", "u", HTTPMethod::PUT, ContentType::XML, ContentType::JSON}));
}

TEST(WebServiceArchive, NeedsEveryFieldButAccept) {
    const DocumentMap good =
        object(R"({"name": "a", "url": "u", "method": "GET", "Content-Type": "application/json"})");
    EXPECT_TRUE(WebService::fromEncoded(good));
    for (const auto [name, kept] : good) {
        EXPECT_FALSE(WebService::fromEncoded(good.with(name, nullptr))) << name;
        EXPECT_FALSE(WebService::fromEncoded(good.with(name, 1))) << name;
    }
    for (const auto text : {R"({"url": "u", "method": "GET", "Content-Type": "application/json"})",
                            R"({"name": "a", "method": "GET", "Content-Type": "application/json"})",
                            R"({"name": "a", "url": "u", "Content-Type": "application/json"})",
                            R"({"name": "a", "url": "u", "method": "GET"})"})
        EXPECT_FALSE(readArchive<WebService>(text)) << text;
}

TEST(WebServiceArchive, ComparesExactly) {
    EXPECT_FALSE(
        readArchive<WebService>(R"({"name": "a", "url": "u", "method": "get", "Content-Type": "application/json"})"));
    EXPECT_FALSE(
        readArchive<WebService>(R"({"name": "a", "url": "u", "method": "GET", "Content-Type": "Application/JSON"})"));
    EXPECT_FALSE(readArchive<WebService>(
        R"({"name": "a", "url": {"value": "u"}, "method": "GET", "Content-Type": "application/json"})"));
}

TEST(WebServiceArchive, LeavesAnAcceptAbsentThatIsNoneExactly) {
    const DocumentMap good =
        object(R"({"name": "a", "url": "u", "method": "GET", "Content-Type": "application/json"})");
    for (const Value& accept : {Value("text/html"), Value("APPLICATION/JSON"), Value(1), Value(nullptr)}) {
        const auto service = WebService::fromEncoded(good.with("Accept", accept));
        ASSERT_TRUE(service);
        EXPECT_FALSE(service->acceptHeader);
    }
}

TEST(WebServiceArchive, DoesNotLookIntoAHeader) {
    EXPECT_FALSE(readArchive<WebService>(
        R"({"name": "a", "url": "u", "method": "GET", "header": {"Content-Type": "application/json"}})"));
}

TEST(WebService, AsksForItsHeaders) {
    EXPECT_EQ(readDocument<WebService>(login)->headers(),
              (StringMap{{"Accept", "application/xml"}, {"Content-Type", "application/json"}}));
}

TEST(WebService, DiffersWhenOneFieldDiffers) {
    const WebService service{"a", "u", HTTPMethod::PUT, ContentType::XML, ContentType::JSON};
    EXPECT_EQ(service, (WebService{"a", "u", HTTPMethod::PUT, ContentType::XML, ContentType::JSON}));
    EXPECT_NE(service, (WebService{"b", "u", HTTPMethod::PUT, ContentType::XML, ContentType::JSON}));
    EXPECT_NE(service, (WebService{"a", "v", HTTPMethod::PUT, ContentType::XML, ContentType::JSON}));
    EXPECT_NE(service, (WebService{"a", "u", HTTPMethod::GET, ContentType::XML, ContentType::JSON}));
    EXPECT_NE(service, (WebService{"a", "u", HTTPMethod::PUT, ContentType::JSON, ContentType::JSON}));
    EXPECT_NE(service, (WebService{"a", "u", HTTPMethod::PUT, ContentType::XML, ContentType::XML}));
    EXPECT_NE(service, (WebService{"a", "u", HTTPMethod::PUT, ContentType::XML, std::nullopt}));
}

TEST(WebService, SpellsItsKeys) {
    EXPECT_EQ(WebService::Keys::header, "header");
    EXPECT_EQ(WebService::Keys::name, "name");
    EXPECT_EQ(WebService::Keys::method, "method");
    EXPECT_EQ(WebService::Keys::url, "url");
    EXPECT_EQ(WebService::Keys::value, "value");
    EXPECT_EQ(WebServiceHeaders::accept, "Accept");
    EXPECT_EQ(WebServiceHeaders::contentType, "Content-Type");
}

}  // namespace
}  // namespace quorin
