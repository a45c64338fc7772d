// Whoever has come to a shared stream hears of it when the connection cannot be made.
#include "quorin/platform/rx/Share.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <new>
#include <optional>
#include <thread>
#include <utility>

namespace quorin::rx {
namespace {

/// A shared stream whose first connection does what the test says and has no memory then.
class ShareNoMemory : public testing::Test {
protected:
    void expectNone() {
        EXPECT_THROW(shared_.subscribe(into(log_, "a")), std::bad_alloc);
        EXPECT_EQ(connected_, 1);
    }

    Log log_{};
    std::function<void()> meanwhile_{};
    int connected_ = 0;
    Observer<int> upstream_{};
    Observable<int> shared_ = share(Observable<int>([this](Observer<int> observer) {
        if (++connected_ == 1) {
            meanwhile_();
            throw std::bad_alloc();
        }
        upstream_ = std::move(observer);
        return Disposable();
    }));
};

TEST_F(ShareNoMemory, EndsForASecondMemberWithThatError) {
    bool isNoMemory = false;
    meanwhile_ = [&] {
        shared_.subscribe({.error = [&](const Error& error) { isNoMemory = error.as<NoMemory>() != nullptr; }});
    };
    expectNone();
    EXPECT_TRUE(isNoMemory);
    EXPECT_EQ(log_, Log{});
}

TEST_F(ShareNoMemory, ConnectsAnewForWhoComesNext) {
    meanwhile_ = [&] { shared_.subscribe(into(log_, "b")); };
    expectNone();
    shared_.subscribe(into(log_, "c"));
    EXPECT_EQ(connected_, 2);
    upstream_.next(1);
    EXPECT_EQ(log_, (Log{"b!", "c1"}));
}

TEST_F(ShareNoMemory, LeavesNoThreadWaiting) {
    std::latch joined(1);
    const Observable<int> joining([&](const Observer<int>& observer) {
        Disposable place = shared_.subscribe([observer](const Event<int>& event) { observer.send(event); });
        joined.count_down();
        return place;
    });
    std::optional<Result<int>> result;
    std::jthread second;
    meanwhile_ = [&] {
        second = std::jthread([&] { result = wait(joining); });
        joined.wait();
    };
    expectNone();
    second.join();
    ASSERT_TRUE(result && !*result);
    EXPECT_NE(result->error().as<NoMemory>(), nullptr);
}

}  // namespace
}  // namespace quorin::rx
