#include "quorin/core/ConfigurationManager.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/Child.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>
#include <thread>
#include <vector>

namespace quorin {
namespace {

using Instance = ConfigurationManager::Instance;
using support::Child;

constexpr int allSteps = 1000;

/// What a step assigns: no two alike, and every tenth long enough to fill the journal, which is then carried over.
std::string textOf(int step) {
    const auto few = static_cast<std::size_t>(step % 50);
    return std::to_string(step) + std::string(step % 10 == 0 ? 60000U : few, '.');
}

/// The steps assign the account, the child and the token by turns.
void take(Instance& manager, int step) {
    if (step % 3 == 0) manager.setKova(textOf(step));
    if (step % 3 == 1) manager.setChildProfileID(textOf(step));
    if (step % 3 == 2) manager.setProfileJWT(textOf(step));
}

using Values = std::array<std::string, 3>;

/// After so many steps, at least three.
Values valuesAfter(int steps) {
    Values values;
    for (int step = steps - 3; step < steps; ++step) values[static_cast<std::size_t>(step % 3)] = textOf(step);
    return values;
}

Values valuesOf(const Instance& manager) {
    return {manager.kova().value_or("lost"), manager.childProfileID(), manager.profileJWT().value_or("lost")};
}

std::string parentAfterThreeSteps(const Testbed& bed) {
    Instance manager(bed.start());
    for (int step = 0; step < 3; ++step) take(manager, step);
    return manager.parentProfileID();
}

/// Goes on with the steps in a process that is killed when it has told of this one; yields the last it told of.
int takeUntilKilled(const Testbed& bed, int first, int killedAt) {
    Child child([&](const Child::Say& say) {
        Instance manager(bed.start());
        for (int step = first; step < allSteps; ++step) {
            take(manager, step);
            say(std::to_string(step));
        }
    });
    int last = first - 1;
    while (last < killedAt) last = std::stoi(child.line());
    child.kill();
    for (std::string line = child.line(); !line.empty(); line = child.line()) last = std::stoi(line);
    child.finish();
    return last;
}

/// In order, over all the steps.
std::vector<int> momentsOfDeath() {
    std::mt19937 random(20240229);
    std::vector<int> moments(30);
    for (int& moment : moments) moment = 3 + static_cast<int>(random() % (allSteps - 3));
    std::sort(moments.begin(), moments.end());
    return moments;
}

TEST(KilledAtAnyMoment, LeavesEachValueOldOrNew) {
    const Testbed bed;
    const std::string parent = parentAfterThreeSteps(bed);
    int taken = 3;
    for (const int moment : momentsOfDeath()) {
        taken = takeUntilKilled(bed, taken, moment) + 1;
        const Instance manager(bed.start());
        const Values values = valuesOf(manager);
        if (values != valuesAfter(taken)) ++taken;
        EXPECT_EQ(values, valuesAfter(taken));
        EXPECT_EQ(manager.parentProfileID(), parent);
        EXPECT_EQ(manager.platform().store->status(), (morr::Status{morr::Status::Kind::open, ""}));
    }
}

std::size_t sizeOf(const std::string& path) {
    std::error_code none;
    const auto size = std::filesystem::file_size(path, none);
    return none ? 0 : size;
}

/// Killed when its store and the journal together have so many bytes; yields the parent if it came to tell it.
std::string killedAtItsFirstStart(const Testbed& bed, std::size_t size) {
    Child child([&](const Child::Say& say) {
        const Instance manager(bed.start());
        say(manager.parentProfileID());
        pause();
    });
    while (sizeOf(bed.storePath()) + sizeOf(bed.storePath() + "-wal") < size) std::this_thread::yield();
    child.kill();
    return child.line();
}

TEST(KilledAtItsFirstStart, LeavesAStoreThatKeepsAnIdentity) {
    for (std::size_t size = 0; size < 15000; size += 1500) {
        const Testbed bed;
        const std::string told = killedAtItsFirstStart(bed, size);
        const std::string parent = Instance(bed.start()).parentProfileID();
        EXPECT_TRUE(told.empty() || told == parent) << told;
        const Instance next(bed.start());
        EXPECT_EQ(next.parentProfileID(), parent);
        EXPECT_EQ(next.childProfileID(), parent);
        EXPECT_EQ(next.platform().store->status().kind, morr::Status::Kind::open);
    }
}

}  // namespace
}  // namespace quorin
