#include "quorin/context/UserZ.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/Environment.hpp"

#include <gtest/gtest.h>

namespace quorin {
namespace {

TEST(UserZ, IsMadeAtTheFirstReadAndKept) {
    const Platform platform = phone(":memory:");
    UserZ zone;
    {
        const support::Environment here("TZ", "EST5");
        EXPECT_EQ(zone.value(platform), "-0500");
    }
    const support::Environment elsewhere("TZ", "CET-1");
    EXPECT_EQ(zone.value(platform), "-0500");
    EXPECT_EQ(ConfigurationManagerUtils::generateZ(platform), "+0100");
}

TEST(UserZ, IsReplacedByWhatIsSet) {
    UserZ zone;
    zone.set("anything");
    EXPECT_EQ(zone.value(phone(":memory:")), "anything");
}

}  // namespace
}  // namespace quorin
