#include "quorin/platform/foundation/UUID.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace quorin::foundation {
namespace {

TEST(UUID, IsAnUpperCaseTextOfVersion4) {
    const auto shape = testing::MatchesRegex("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    for (int i = 0; i < 200; ++i) {
        ASSERT_THAT(randomUUID(), shape);
    }
}

TEST(UUID, IsAnotherOneEachTime) {
    std::set<std::string> seen;
    for (int i = 0; i < 1000; ++i) seen.insert(randomUUID());
    EXPECT_EQ(seen.size(), 1000U);
}

}  // namespace
}  // namespace quorin::foundation
