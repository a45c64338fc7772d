#include "quorin/platform/skell/HTTPMethod.hpp"
#include "quorin/services/ContentType.hpp"

#include <gtest/gtest.h>

namespace quorin {
namespace {

TEST(ContentType, HasThreeRawValues) {
    EXPECT_EQ(ContentType(ContentType::JSON).rawValue(), "application/json");
    EXPECT_EQ(ContentType(ContentType::XML).rawValue(), "application/xml");
    EXPECT_EQ(ContentType(ContentType::urlEncoded).rawValue(), "application/x-www-form-urlencoded");
}

TEST(ContentType, IsMadeFromItsExactRawValueOnly) {
    EXPECT_EQ(ContentType::fromRawValue("application/json"), ContentType::JSON);
    EXPECT_EQ(ContentType::fromRawValue("application/xml"), ContentType::XML);
    EXPECT_EQ(ContentType::fromRawValue("application/x-www-form-urlencoded"), ContentType::urlEncoded);
    for (const auto text :
         {"", "APPLICATION/JSON", "application/json ", "application/json; charset=utf-8", "text/html", "json"})
        EXPECT_FALSE(ContentType::fromRawValue(text)) << text;
}

TEST(ContentType, MatchesItsRawValueInAnyLetterCase) {
    EXPECT_EQ(ContentType::matching("Application/JSON"), ContentType::JSON);
    EXPECT_EQ(ContentType::matching("APPLICATION/X-WWW-FORM-URLENCODED"), ContentType::urlEncoded);
    EXPECT_FALSE(ContentType::matching("application/jsonp"));
}

TEST(HTTPMethod, StandsInTheOrderOfItsRawValues) {
    EXPECT_EQ(HTTPMethod::fromRawValue("CONNECT"), HTTPMethod::CONNECT);
    EXPECT_EQ(HTTPMethod::fromRawValue("DELETE"), HTTPMethod::DELETE);
    EXPECT_EQ(HTTPMethod::fromRawValue("HEAD"), HTTPMethod::HEAD);
    EXPECT_EQ(HTTPMethod::fromRawValue("OPTIONS"), HTTPMethod::OPTIONS);
    EXPECT_EQ(HTTPMethod::fromRawValue("PATCH"), HTTPMethod::PATCH);
    EXPECT_EQ(HTTPMethod::fromRawValue("POST"), HTTPMethod::POST);
    EXPECT_EQ(HTTPMethod::fromRawValue("PUT"), HTTPMethod::PUT);
    EXPECT_EQ(HTTPMethod::fromRawValue("TRACE"), HTTPMethod::TRACE);
    EXPECT_EQ(HTTPMethod::fromRawValue("GET"), HTTPMethod::GET);
    EXPECT_FALSE(HTTPMethod::fromRawValue("get"));
}

}  // namespace
}  // namespace quorin
