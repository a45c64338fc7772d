#include "quorin/platform/rx/Disposable.hpp"
#include "quorin/platform/rx/LateDisposable.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace quorin::rx {
namespace {

TEST(Disposable, IsDisposedFromTheStartWhenEmpty) {
    const Disposable disposable;
    EXPECT_TRUE(disposable.isDisposed());
    disposable.dispose();
}

TEST(Disposable, ActsOnceForAllItsCopies) {
    int actions = 0;
    const Disposable disposable([&] { ++actions; });
    const Disposable copy = disposable;
    EXPECT_FALSE(copy.isDisposed());
    disposable.dispose();
    copy.dispose();
    EXPECT_EQ(actions, 1);
    EXPECT_TRUE(copy.isDisposed());
}

TEST(Disposable, DoesNothingWhenDropped) {
    int actions = 0;
    {
        const Disposable disposable([&] { ++actions; });
    }
    EXPECT_EQ(actions, 0);
}

TEST(Disposable, ReleasesItsActionAfterIt) {
    const auto held = std::make_shared<int>();
    const Disposable disposable([held] {});
    disposable.dispose();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Disposable, MayBeDroppedAndDisposedByItsOwnAction) {
    int actions = 0;
    auto disposable = std::make_unique<Disposable>();
    *disposable = Disposable([&] {
        ++actions;
        disposable->dispose();
        disposable.reset();
    });
    disposable->dispose();
    EXPECT_EQ(actions, 1);
}

TEST(Disposable, ActsOnceWhenManyThreadsDispose) {
    std::atomic<int> actions = 0;
    const Disposable disposable([&] { ++actions; });
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) threads.emplace_back([=] { disposable.dispose(); });
    threads.clear();
    EXPECT_EQ(actions, 1);
}

TEST(LateDisposable, KeepsWhatComesFirst) {
    LateDisposable late;
    const Disposable disposable([] {});
    late.put(disposable);
    EXPECT_FALSE(disposable.isDisposed());
    late.dispose();
    EXPECT_TRUE(disposable.isDisposed());
}

TEST(LateDisposable, DisposesAtOnceWhatComesLate) {
    LateDisposable late;
    const Disposable disposable([] {});
    late.dispose();
    late.put(disposable);
    EXPECT_TRUE(disposable.isDisposed());
}

}  // namespace
}  // namespace quorin::rx
