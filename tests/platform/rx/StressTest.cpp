#include "quorin/platform/rx/Share.hpp"
#include "quorin/platform/rx/Variable.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <thread>
#include <vector>

namespace quorin::rx {
namespace {

constexpr int threadCount = 4;
constexpr int rounds = 300;

/// What one subscriber got; written without a lock, as one event at a time is promised.
using Received = std::shared_ptr<std::vector<int>>;

Disposable record(const Observable<int>& stream, const Received& received) {
    return stream.subscribe({.next = [received](int value) { received->push_back(value); }});
}

/// Whether the values stand in the order side by side. Each value of the order is there once.
bool isStretchOf(const std::vector<int>& order, const std::vector<int>& values) {
    if (values.empty()) return true;
    const auto start = std::find(order.begin(), order.end(), values.front());
    if (order.end() - start < static_cast<std::ptrdiff_t>(values.size())) return false;
    return std::equal(values.begin(), values.end(), start);
}

template <class Work>
void onThreads(Work work) {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < threadCount; ++thread) threads.emplace_back([=] { work(thread); });
}

int uniqueValue(int thread, int round) { return 1 + thread * rounds + round; }

TEST(Stress, GivesEverySubscriberAStretchOfOneOrder) {
    Variable<int> cell(0);
    const auto order = std::make_shared<std::vector<int>>();
    record(cell.asObservable(), order);
    std::vector<std::vector<Received>> received(threadCount);
    onThreads([&](int thread) {
        for (int round = 0; round < rounds; ++round) {
            auto& own = received[static_cast<std::size_t>(thread)];
            own.push_back(std::make_shared<std::vector<int>>());
            const Disposable subscription = record(cell.asObservable(), own.back());
            cell.assign(uniqueValue(thread, round));
            if (round > 0) subscription.dispose();
        }
    });
    EXPECT_EQ(order->size(), 1u + threadCount * rounds);
    EXPECT_EQ(order->back(), cell.value());
    for (const auto& own : received) {
        for (const Received& values : own) {
            ASSERT_TRUE(isStretchOf(*order, *values));
            EXPECT_GE(values->size(), 2u) << "the value of the moment and the assignment after it";
        }
        EXPECT_EQ(own.front()->back(), cell.value());
    }
}

TEST(Stress, KeepsTheOneOrderWhenHandlersAssignAcrossCells) {
    Variable<int> left(0), right(0);
    const auto leftOrder = std::make_shared<std::vector<int>>();
    const auto rightOrder = std::make_shared<std::vector<int>>();
    const auto leftAgain = std::make_shared<std::vector<int>>();
    record(left.asObservable(), leftOrder);
    record(right.asObservable(), rightOrder);
    left.asObservable().subscribe({.next = [&](int value) {
        if (value > 0) right.assign(-value);
    }});
    right.asObservable().subscribe({.next = [&](int value) {
        if (value > 0) left.assign(-value);
    }});
    record(left.asObservable(), leftAgain);
    onThreads([&](int thread) {
        for (int round = 0; round < rounds; ++round)
            (thread % 2 == 0 ? left : right).assign(uniqueValue(thread, round));
    });
    EXPECT_EQ(leftOrder->size(), 1u + threadCount * rounds);
    EXPECT_EQ(rightOrder->size(), 1u + threadCount * rounds);
    EXPECT_EQ(*leftAgain, *leftOrder);
    EXPECT_EQ(leftOrder->back(), left.value());
    EXPECT_EQ(rightOrder->back(), right.value());
}

TEST(Stress, SharesOneOrderWhileSubscribersComeAndGo) {
    Variable<int> cell(0);
    const auto order = std::make_shared<std::vector<int>>();
    record(cell.asObservable(), order);
    const Observable<int> shared = share(cell.asObservable());
    std::vector<std::vector<Received>> received(threadCount);
    onThreads([&](int thread) {
        for (int round = 0; round < rounds; ++round) {
            auto& own = received[static_cast<std::size_t>(thread)];
            own.push_back(std::make_shared<std::vector<int>>());
            const Disposable subscription = record(shared, own.back());
            cell.assign(uniqueValue(thread, round));
            subscription.dispose();
        }
    });
    for (const auto& own : received)
        for (const Received& values : own) ASSERT_TRUE(isStretchOf(*order, *values));
    EXPECT_EQ(order->back(), cell.value());
}

TEST(Stress, SurvivesTheDestructionOfTheCellAmidSubscriptions) {
    for (int round = 0; round < rounds; ++round) {
        auto cell = std::make_unique<Variable<int>>(round);
        const Observable<int> stream = cell->asObservable();
        std::vector<int> completions(threadCount, 0);
        {
            std::jthread destroying([&] { cell.reset(); });
            onThreads([&](int thread) {
                stream.subscribe({.completed = [&, thread] { ++completions[static_cast<std::size_t>(thread)]; }});
            });
        }
        ASSERT_EQ(completions, std::vector<int>(threadCount, 1));
    }
}

}  // namespace
}  // namespace quorin::rx
