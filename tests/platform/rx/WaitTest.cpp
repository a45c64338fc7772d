#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace quorin::rx {
namespace {

TEST(Wait, YieldsTheValue) {
    const Result<int> result = wait(just(4));
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, 4);
}

TEST(Wait, YieldsTheError) {
    const Result<int> result = wait(error<int>(Broken{6}));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().as<Broken>()->code, 6);
}

TEST(Wait, FailsWhenTheStreamCompletesWithoutAValue) {
    const Observable<int> empty([](const Observer<int>& observer) {
        observer.complete();
        return Disposable();
    });
    const Result<int> result = wait(empty);
    ASSERT_FALSE(result);
    EXPECT_NE(result.error().as<NoValue>(), nullptr);
}

TEST(Wait, BlocksForTheValueOfAnotherThread) {
    std::jthread thread;
    const Observable<int> stream([&](Observer<int> observer) {
        thread = std::jthread([observer = std::move(observer)] {
            observer.next(4);
            observer.complete();
        });
        return Disposable();
    });
    const Result<int> result = wait(stream);
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, 4);
}

TEST(Wait, TakesTheFirstValueAndLeaves) {
    const Disposable upstream([] {});
    const Observable<int> stream([&](const Observer<int>& observer) {
        observer.next(1);
        observer.next(2);
        return upstream;
    });
    EXPECT_EQ(*wait(stream), 1);
    EXPECT_TRUE(upstream.isDisposed());
}

}  // namespace
}  // namespace quorin::rx
