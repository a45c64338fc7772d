#include "quorin/platform/skell/RequestBody.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace quorin::skell {
namespace {

const json::DocumentMap content{{"b", "x y"}, {"a", 1}};

TEST(RequestBodyType, IsPrintedByItsName) {
    EXPECT_EQ(RequestBodyType(RequestBodyType::JSON).rawValue(), "JSON");
    EXPECT_EQ(RequestBodyType(RequestBodyType::XML).rawValue(), "XML");
    EXPECT_EQ(RequestBodyType(RequestBodyType::urlEncoded).rawValue(), "urlEncoded");
}

TEST(RequestBody, WritesItsContentAsItsType) {
    EXPECT_EQ(RequestBody(RequestBodyType::JSON, content).text(), R"({"a":1,"b":"x y"})");
    EXPECT_EQ(RequestBody(RequestBodyType::XML, content).text(), "<request><a>1</a><b>x y</b></request>");
    EXPECT_EQ(RequestBody(RequestBodyType::urlEncoded, content).text(), "a=1&b=x+y");
}

TEST(RequestBody, IsEmptyWithoutContent) {
    EXPECT_EQ(RequestBody(RequestBodyType::JSON).text(), "{}");
    EXPECT_EQ(RequestBody(RequestBodyType::XML).text(), "<request/>");
    EXPECT_EQ(RequestBody(RequestBodyType::urlEncoded).text(), "");
    EXPECT_TRUE(RequestBody(RequestBodyType::JSON).content().empty());
}

TEST(RequestBody, KeepsTypeAndContent) {
    const RequestBody body(RequestBodyType::urlEncoded, content);
    EXPECT_EQ(body.type(), RequestBodyType::urlEncoded);
    EXPECT_EQ(body.content(), content);
}

TEST(RequestBody, MayBeBytesThatHaveNoType) {
    const RequestBody bytes = RequestBody::bytes(std::string("\0\xFF", 2));
    EXPECT_EQ(bytes.type(), std::nullopt);
    EXPECT_TRUE(bytes.content().empty());
    EXPECT_EQ(bytes.text(), std::string("\0\xFF", 2));
}

TEST(RequestBody, NeverCopiesItsBytes) {
    std::string text(1000, 'x');
    const char* const where = text.data();
    auto body = std::make_unique<RequestBody>(RequestBody::bytes(std::move(text)));
    const RequestBody copy = *body;
    const auto shared = body->sharedText();
    body.reset();
    EXPECT_EQ(copy.text().data(), where);
    EXPECT_EQ(shared->data(), where);
}

}  // namespace
}  // namespace quorin::skell
