#include "quorin/platform/foundation/Device.hpp"

#include <gtest/gtest.h>
#include <sys/utsname.h>

namespace quorin::foundation {
namespace {

TEST(Device, IsWhatTheKernelSays) {
    utsname facts{};
    ASSERT_EQ(uname(&facts), 0);
    const Device device = Device::current();
    EXPECT_EQ(device.model, facts.machine);
    EXPECT_EQ(device.systemName, facts.sysname);
    EXPECT_EQ(device.systemVersion, facts.release);
    EXPECT_FALSE(device.model.empty());
}

}  // namespace
}  // namespace quorin::foundation
