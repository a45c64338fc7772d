#include "quorin/platform/rx/Variable.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <thread>

namespace quorin::rx {
namespace {

TEST(Variable, YieldsTheLastValueAssigned) {
    Variable<int> cell(1);
    EXPECT_EQ(cell.value(), 1);
    cell.assign(2);
    EXPECT_EQ(cell.value(), 2);
}

TEST(Variable, DeliversItsValueAtOnceAndThenEachAssignment) {
    Log log;
    Variable<int> cell(1);
    cell.assign(2);
    cell.asObservable().subscribe(into(log, "a"));
    EXPECT_EQ(log, Log{"a2"});
    cell.assign(3);
    EXPECT_EQ(log, (Log{"a2", "a3"}));
}

TEST(Variable, DeliversEqualValuesToo) {
    Log log;
    Variable<int> cell(1);
    cell.asObservable().subscribe(into(log, "a"));
    cell.assign(1);
    EXPECT_EQ(log, (Log{"a1", "a1"}));
}

TEST(Variable, DeliversInTheOrderOfSubscription) {
    Log log;
    Variable<int> cell(1);
    cell.asObservable().subscribe(into(log, "a"));
    cell.asObservable().subscribe(into(log, "b"));
    cell.assign(2);
    EXPECT_EQ(log, (Log{"a1", "b1", "a2", "b2"}));
}

TEST(Variable, DeliversOnTheAssigningThread) {
    std::thread::id delivering;
    Variable<int> cell(1);
    cell.asObservable().subscribe({.next = [&](int) { delivering = std::this_thread::get_id(); }});
    EXPECT_EQ(delivering, std::this_thread::get_id());
    std::jthread thread([&] { cell.assign(2); });
    const auto assigning = thread.get_id();
    thread.join();
    EXPECT_EQ(delivering, assigning);
}

TEST(Variable, DeliversNothingToWhoLeft) {
    Log log;
    Variable<int> cell(1);
    const Disposable subscription = cell.asObservable().subscribe(into(log, "a"));
    subscription.dispose();
    cell.assign(2);
    EXPECT_EQ(log, Log{"a1"});
}

TEST(Variable, ReleasesTheHandlerOfWhoLeft) {
    const auto held = std::make_shared<int>();
    Variable<int> cell(1);
    const Disposable subscription = cell.asObservable().subscribe([held](const Event<int>&) {});
    subscription.dispose();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Variable, CompletesItsStreamsWhenDestroyed) {
    Log log;
    {
        Variable<int> cell(1);
        cell.asObservable().subscribe(into(log, "a"));
        cell.asObservable().subscribe(into(log, "b"));
    }
    EXPECT_EQ(log, (Log{"a1", "b1", "a.", "b."}));
}

TEST(Variable, ReleasesHandlersThatHoldItsStreamWhenDestroyed) {
    const auto held = std::make_shared<int>();
    {
        Variable<int> cell(1);
        const Observable<int> stream = cell.asObservable();
        stream.subscribe([held, stream](const Event<int>&) {});
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Variable, LeavesItsLastValueAndCompletionInItsStream) {
    Log log;
    std::optional<Variable<int>> cell(1);
    const Observable<int> stream = cell->asObservable();
    cell->assign(2);
    cell.reset();
    stream.subscribe(into(log, "a"));
    EXPECT_EQ(log, (Log{"a2", "a."}));
}

/// A value whose release reads the cell that held it, and counts.
std::shared_ptr<int> readingWhenReleased(const Variable<std::shared_ptr<int>>& cell, int& releases) {
    return {new int(0), [&](const int* value) {
                releases += cell.value() == nullptr ? 1 : 0;
                delete value;
            }};
}

TEST(Variable, LetsAValueCallBackWhenAnAssignmentReleasesIt) {
    int releases = 0;
    Variable<std::shared_ptr<int>> cell(nullptr);
    cell.assign(readingWhenReleased(cell, releases));
    cell.assign(nullptr);
    EXPECT_EQ(releases, 1);
}

TEST(Variable, LetsAValueCallBackWhenItsDeliveryReleasesIt) {
    int releases = 0;
    Variable<std::shared_ptr<int>> cell(nullptr);
    cell.asObservable().subscribe({.next = [&](const std::shared_ptr<int>& value) {
        if (value) cell.assign(nullptr);
    }});
    cell.assign(readingWhenReleased(cell, releases));
    EXPECT_EQ(releases, 1);
}

}  // namespace
}  // namespace quorin::rx
