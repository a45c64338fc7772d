#include "quorin/core/ConfigurationManager.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/Child.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace quorin {
namespace {

using Instance = ConfigurationManager::Instance;
using support::Child;
using testing::AnyOf;

using Assign = std::function<void(Instance& manager, const std::string& value)>;

/// A hundred rounds of assignments over four starts. Its one line is empty, or the status as soon as it was no good
/// one.
class Process {
public:
    Process(const Testbed& bed, const std::string& name, const Assign& assign)
        : child_([&](const Child::Say& say) {
              for (int i = 0; i < 100; i += 25) {
                  Instance manager(bed.start());
                  for (int j = i; j < i + 25; ++j) {
                      assign(manager, name + std::to_string(j));
                      if (const auto status = manager.platform().store->status(); status.kind != good)
                          return say("after " + std::to_string(j) + ": " + status.message);
                  }
              }
          }) {}

    std::string trouble() const { return child_.line(); }
    bool finish() { return child_.finish(); }

private:
    static constexpr auto good = morr::Status::Kind::open;
    Child child_;
};

/// Both on a store that is not there yet.
void expectNoTroubleAtOnce(const Testbed& bed, const Assign& first, const Assign& second) {
    Process a(bed, "a", first);
    Process b(bed, "b", second);
    EXPECT_EQ(a.trouble(), "");
    EXPECT_EQ(b.trouble(), "");
    EXPECT_TRUE(a.finish());
    EXPECT_TRUE(b.finish());
}

TEST(TwoProcesses, AssignTheSameValuesAndTheLastWriterWins) {
    const Testbed bed;
    const Assign all = [](Instance& manager, const std::string& value) {
        manager.setKova(value);
        manager.setParentProfileID(value);
        manager.setProfileJWT(value);
    };
    expectNoTroubleAtOnce(bed, all, all);
    const Instance manager(bed.start());
    EXPECT_THAT(*manager.kova(), AnyOf("a99", "b99"));
    EXPECT_THAT(manager.parentProfileID(), AnyOf("a99", "b99"));
    EXPECT_THAT(*manager.profileJWT(), AnyOf("a99", "b99"));
}

TEST(TwoProcesses, AssignDifferentValuesAndNoneIsLost) {
    const Testbed bed;
    const Assign accountAndChild = [](Instance& manager, const std::string& value) {
        manager.setKova(value);
        manager.setChildProfileID(value);
    };
    const Assign tokenAndProvider = [](Instance& manager, const std::string& value) {
        manager.setProfileJWT(value);
        manager.setVEXOMVPD(value);
    };
    expectNoTroubleAtOnce(bed, accountAndChild, tokenAndProvider);
    const Instance manager(bed.start());
    EXPECT_EQ(manager.kova(), "a99");
    EXPECT_EQ(manager.childProfileID(), "a99");
    EXPECT_EQ(manager.profileJWT(), "b99");
    EXPECT_EQ(manager.VEXOMVPD(), "b99");
}

TEST(TwoProcesses, AssignAndRemoveAtOnce) {
    const Testbed bed;
    const Assign assign = [](Instance& manager, const std::string& value) { manager.setProfileJWT(value); };
    const Assign remove = [](Instance& manager, const std::string& value) {
        manager.setProfileJWT(value);
        manager.setProfileJWT(std::nullopt);
        manager.setKova(value);
    };
    expectNoTroubleAtOnce(bed, assign, remove);
    const Instance manager(bed.start());
    EXPECT_THAT(manager.profileJWT().value_or("none"), AnyOf("a99", "none"));
    EXPECT_EQ(manager.kova(), "b99");
}

TEST(TwoProcesses, StartForTheFirstTimeAtOnceWithOneProfile) {
    for (int round = 0; round < 10; ++round) {
        const Testbed bed;
        const auto start = [&](const Child::Say& say) {
            const Instance manager(bed.start());
            say(manager.parentProfileID() + " " + manager.childProfileID());
        };
        const Child first(start);
        const Child second(start);
        const std::string profiles = first.line();
        EXPECT_EQ(second.line(), profiles);
        const Instance manager(bed.start());
        EXPECT_EQ(manager.parentProfileID() + " " + manager.childProfileID(), profiles);
    }
}

}  // namespace
}  // namespace quorin
