#include "quorin/platform/foundation/Bundle.hpp"

#include <gtest/gtest.h>

namespace quorin::foundation {
namespace {

TEST(Bundle, TellsAnAbsentNameFromAnEmptyOne) {
    EXPECT_EQ(Bundle{}.name, std::nullopt);
    EXPECT_EQ(Bundle{}.shortVersion, std::nullopt);
    EXPECT_NE(Bundle{.name = ""}, Bundle{});
    EXPECT_EQ((Bundle{.name = "Sample", .shortVersion = "2.4"}), (Bundle{"Sample", "2.4"}));
}

}  // namespace
}  // namespace quorin::foundation
