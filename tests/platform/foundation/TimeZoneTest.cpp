#include "quorin/platform/foundation/TimeZone.hpp"

#include "tests/support/Environment.hpp"

#include <gtest/gtest.h>

namespace quorin::foundation {
namespace {

using support::Environment;

using std::chrono::sys_days;
using namespace std::chrono_literals;

constexpr std::chrono::system_clock::time_point winter = sys_days{2026y / 1 / 15};
constexpr std::chrono::system_clock::time_point summer = sys_days{2026y / 7 / 15};

std::string offsetIn(const char* zone, std::chrono::system_clock::time_point moment) {
    const Environment environment("TZ", zone);
    return utcOffset(moment);
}

TEST(TimeZone, IsSignHoursAndMinutes) {
    EXPECT_EQ(offsetIn("EST5", winter), "-0500");
    EXPECT_EQ(offsetIn("<+0545>-5:45", winter), "+0545");
    EXPECT_EQ(offsetIn("<-0330>3:30", winter), "-0330");
    EXPECT_EQ(offsetIn("<-0030>0:30", winter), "-0030");
    EXPECT_EQ(offsetIn("<+14>-14", winter), "+1400");
    EXPECT_EQ(offsetIn("UTC0", winter), "+0000");
}

TEST(TimeZone, FollowsDaylightSaving) {
    constexpr const char* berlin = "CET-1CEST,M3.5.0,M10.5.0/3";
    EXPECT_EQ(offsetIn(berlin, winter), "+0100");
    EXPECT_EQ(offsetIn(berlin, summer), "+0200");
    const std::chrono::system_clock::time_point change = sys_days{2026y / 3 / 29} + 1h;
    EXPECT_EQ(offsetIn(berlin, change - 1s), "+0100");
    EXPECT_EQ(offsetIn(berlin, change), "+0200");
}

TEST(TimeZone, IsReadAnewAtEachCall) {
    const Environment first("TZ", "AAA-3");
    EXPECT_EQ(utcOffset(winter), "+0300");
    const Environment second("TZ", "BBB4");
    EXPECT_EQ(utcOffset(winter), "-0400");
}

TEST(TimeZone, CutsOddSecondsOff) {
    EXPECT_EQ(offsetIn("<LMT>-0:53:28", winter), "+0053");
    EXPECT_EQ(offsetIn("<LMT>0:53:28", winter), "-0053");
    EXPECT_EQ(offsetIn("<LMT>0:00:30", winter), "+0000");
}

TEST(TimeZone, IsUTCWhenBroken) {
    for (const char* zone : {"", ":/no/such/zone", "No/Where", "<", "+++", "\xff"}) {
        EXPECT_EQ(offsetIn(zone, winter), "+0000") << zone;
    }
}

TEST(TimeZone, HoldsAtTheEndsOfTheClock) {
    EXPECT_EQ(offsetIn("EST5", std::chrono::system_clock::time_point::min()), "-0500");
    EXPECT_EQ(offsetIn("EST5", std::chrono::system_clock::time_point::max()), "-0500");
}

}  // namespace
}  // namespace quorin::foundation
