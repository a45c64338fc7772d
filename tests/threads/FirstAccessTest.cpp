#include "quorin/core/ConfigurationManager.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/Child.hpp"

#include <gtest/gtest.h>

#include <latch>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace quorin {
namespace {

constexpr int threadCount = 16;
constexpr int processCount = 100;

/// The profiles that the threads of a new process get, which ask for the shared manager at the same moment.
std::set<std::string> profilesOfFirstAccess() {
    std::latch start(threadCount);
    std::vector<std::string> profiles(threadCount);
    std::vector<std::jthread> threads;
    threads.reserve(threadCount);
    for (std::string& profile : profiles) {
        threads.emplace_back([&start, &profile] {
            start.arrive_and_wait();
            profile = ConfigurationManager::sharedInstance().parentProfileID();
        });
    }
    threads.clear();
    return {profiles.begin(), profiles.end()};
}

TEST(FirstAccess, OfSixteenThreadsMakesOneManager) {
    for (int i = 0; i < processCount; ++i) {
        const Testbed bed;
        const std::string said = support::inChild([&] {
            platform::install(bed.start());
            const auto profiles = profilesOfFirstAccess();
            return std::to_string(profiles.size()) + " " + *profiles.begin();
        });
        ASSERT_EQ(said, "1 " + bed.stored("com.vexodigitalMedia.parent.profileID").value_or("nothing stored"));
    }
}

}  // namespace
}  // namespace quorin
