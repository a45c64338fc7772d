#include "quorin/platform/rx/Result.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace quorin::rx {
namespace {

TEST(Result, IsTrueWithAValue) {
    const Result<std::string> result = std::string("yes");
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, "yes");
    EXPECT_EQ(result.value(), "yes");
    EXPECT_EQ(result->size(), 3u);
}

TEST(Result, IsFalseWithAnError) {
    const Result<std::string> result = Error(Broken{3});
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().as<Broken>()->code, 3);
}

TEST(Result, IsMadeOfWhateverIsAnError) {
    const auto failing = []() -> Result<int> { return Broken{3}; };
    EXPECT_EQ(failing().error().description(), "broken 3");
}

TEST(Result, MayCarryAnErrorTypeAsItsValue) {
    const Result<Broken> result = Broken{3};
    ASSERT_TRUE(result);
    EXPECT_EQ(result->code, 3);
}

TEST(Result, GivesItsValueAway) {
    Result<std::unique_ptr<int>> result = std::make_unique<int>(5);
    const std::unique_ptr<int> value = *std::move(result);
    EXPECT_EQ(*value, 5);
}

}  // namespace
}  // namespace quorin::rx
