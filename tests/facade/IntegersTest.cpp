#include "quorin/facade/KVTBrand.hpp"
#include "quorin/facade/KVTContentType.hpp"
#include "quorin/facade/KVTHTTPMethod.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quorin {
namespace {

TEST(KVTBrand, HasFixedIntegers) {
    EXPECT_EQ(KVTBrand(KVTBrand::undefined).rawValue(), -1);
    EXPECT_EQ(KVTBrand(Brand::orvel).rawValue(), 0);
    EXPECT_EQ(KVTBrand(Brand::caldor).rawValue(), 1);
    EXPECT_EQ(KVTBrand(Brand::pellow).rawValue(), 2);
    EXPECT_EQ(KVTBrand(Brand::quintar).rawValue(), 3);
    EXPECT_EQ(KVTBrand(Brand::tavish).rawValue(), 4);
    EXPECT_EQ(KVTBrand(Brand::unknown).rawValue(), 5);
}

TEST(KVTBrand, IsUndefinedWithoutABrand) { EXPECT_EQ(KVTBrand(std::nullopt), KVTBrand::undefined); }

TEST(KVTBrand, IsUndefinedForABrandWithoutAnInteger) {
    for (const Brand brand : {Brand::brisan, Brand::vossen, Brand::wexley})
        EXPECT_EQ(KVTBrand(brand), KVTBrand::undefined) << brand.name();
}

TEST(KVTBrand, TakesTheIntegersFromMinusOneToTheLast) {
    for (int integer = -1; integer <= 5; ++integer) EXPECT_EQ(KVTBrand::fromRawValue(integer)->rawValue(), integer);
    for (const std::int64_t other : {std::int64_t{6}, std::int64_t{-2}, std::int64_t{1} << 32, INT64_MIN, INT64_MAX})
        EXPECT_EQ(KVTBrand::fromRawValue(other), std::nullopt) << other;
}

TEST(KVTBrand, GivesTheBrandBack) {
    for (const Brand brand :
         {Brand::orvel, Brand::caldor, Brand::pellow, Brand::quintar, Brand::tavish, Brand::unknown})
        EXPECT_EQ(KVTBrand(brand).brand(), brand);
    EXPECT_EQ(KVTBrand(KVTBrand::unknown).brand(), Brand::fromRawValue("unknown"));
}

TEST(KVTBrandDeathTest, EndsTheProcessWhenItIsAskedForTheBrandOfUndefined) {
    EXPECT_EXIT((void)KVTBrand(KVTBrand::undefined).brand(), testing::KilledBySignal(SIGABRT), "^$");
}

TEST(KVTBrandDeathTest, EndsTheProcessWhenItIsAskedForTheBrandOfACaseThatIsNone) {
    EXPECT_EXIT((void)KVTBrand(static_cast<KVTBrand::Case>(6)).brand(), testing::KilledBySignal(SIGABRT), "^$");
}

// A new brand makes this fail: it needs an integer, or stands here as one that hosts have none for.
TEST(KVTBrand, HasAnIntegerForEveryBrandButThree) {
    std::set<std::string> without;
    std::size_t brands = 0;
    for (; Brand(static_cast<Brand::Case>(brands)) != Brand::unknown; ++brands) {
        const Brand brand(static_cast<Brand::Case>(brands));
        if (KVTBrand(brand) == KVTBrand::undefined) without.emplace(brand.name());
    }
    EXPECT_EQ(brands, 8U);
    EXPECT_EQ(without, (std::set<std::string>{"brisan", "vossen", "wexley"}));
}

TEST(KVTContentType, HasAnIntegerForEveryMediaType) {
    EXPECT_EQ(KVTContentType(ContentType::JSON).rawValue(), 0);
    EXPECT_EQ(KVTContentType(ContentType::XML).rawValue(), 1);
    EXPECT_EQ(KVTContentType(ContentType::urlEncoded).rawValue(), 2);
    for (std::size_t place = 0; place < ContentType::rawValues.size(); ++place) {
        const ContentType native(static_cast<ContentType::Case>(place));
        ASSERT_NE(KVTContentType(native), KVTContentType::undefined) << native.rawValue();
        EXPECT_EQ(KVTContentType(native).contentType(), native);
    }
    EXPECT_EQ(ContentType::rawValues.size(), 3U);
}

TEST(KVTContentType, IsUndefinedWithoutAMediaType) {
    EXPECT_EQ(KVTContentType(std::nullopt), KVTContentType::undefined);
}

TEST(KVTContentType, TakesTheIntegersFromMinusOneToTheLast) {
    EXPECT_EQ(KVTContentType::fromRawValue(-2), std::nullopt);
    EXPECT_EQ(*KVTContentType::fromRawValue(-1), KVTContentType::undefined);
    EXPECT_EQ(*KVTContentType::fromRawValue(2), KVTContentType::urlEncoded);
    EXPECT_EQ(KVTContentType::fromRawValue(3), std::nullopt);
}

TEST(KVTContentTypeDeathTest, EndsTheProcessWhenItIsAskedForTheTypeOfUndefined) {
    EXPECT_EXIT((void)KVTContentType(KVTContentType::undefined).contentType(), testing::KilledBySignal(SIGABRT), "^$");
}

TEST(KVTHTTPMethod, HasAnIntegerForEveryMethod) {
    const std::array<std::string_view, 9> inOrder{"CONNECT", "DELETE", "HEAD",  "OPTIONS", "PATCH",
                                                  "POST",    "PUT",    "TRACE", "GET"};
    for (int integer = 0; integer < 9; ++integer)
        EXPECT_EQ(KVTHTTPMethod::fromRawValue(integer)->httpMethod()->rawValue(), inOrder.at(std::size_t(integer)));
    for (const std::string_view name : HTTPMethod::rawValues)
        EXPECT_NE(KVTHTTPMethod(HTTPMethod::fromRawValue(name)), KVTHTTPMethod::undefined) << name;
    EXPECT_EQ(HTTPMethod::rawValues.size(), 9U);
}

TEST(KVTHTTPMethod, TakesTheIntegersFromMinusOneToTheLast) {
    EXPECT_EQ(KVTHTTPMethod::fromRawValue(-2), std::nullopt);
    EXPECT_EQ(*KVTHTTPMethod::fromRawValue(-1), KVTHTTPMethod::undefined);
    EXPECT_EQ(*KVTHTTPMethod::fromRawValue(8), KVTHTTPMethod::GET);
    EXPECT_EQ(KVTHTTPMethod::fromRawValue(9), std::nullopt);
}

TEST(KVTHTTPMethodDeathTest, EndsTheProcessWhenItIsAskedForTheMethodOfUndefined) {
    EXPECT_EXIT((void)KVTHTTPMethod(KVTHTTPMethod::undefined).httpMethod(), testing::KilledBySignal(SIGABRT), "^$");
}

}  // namespace
}  // namespace quorin
