#include "quorin/platform/rx/DoOnError.hpp"
#include "quorin/platform/rx/Just.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <utility>

namespace quorin::rx {
namespace {

TEST(DoOnError, TellsTheFunctionBeforeTheSubscriber) {
    Log log;
    doOnError(error<int>(Broken{3}), [&](const Error& error) {
        log.push_back(error.description());
    }).subscribe(into(log, "a"));
    EXPECT_EQ(log, (Log{"broken 3", "a!"}));
}

TEST(DoOnError, PassesValuesAndTheEndOn) {
    Log log;
    doOnError(just(4), [&](const Error& error) { log.push_back(error.description()); }).subscribe(into(log, "a"));
    EXPECT_EQ(log, (Log{"a4", "a."}));
}

TEST(DoOnError, PassesTheErrorOnWhereTheFunctionHasNoMemory) {
    Log log;
    doOnError(error<int>(Broken{3}), [](const Error&) { throw std::bad_alloc(); }).subscribe(into(log, "a"));
    EXPECT_EQ(log, (Log{"a!"}));
}

TEST(DoOnError, TellsNobodyWhenTheSubscriberHasLeft) {
    Log log;
    Observer<int> upstream;
    const Observable<int> stream([&](Observer<int> observer) {
        upstream = std::move(observer);
        return Disposable();
    });
    // Released when the subscriber has left, and before the upstream knows.
    std::shared_ptr<void> leaving(nullptr, [&](void*) { upstream.fail(Broken{3}); });
    const Disposable subscription = doOnError(stream, [&](const Error& error) {
                                        log.push_back(error.description());
                                    }).subscribe([&log, held = std::exchange(leaving, {})](const Event<int>& event) {
        log.push_back(entry("a", event));
    });
    subscription.dispose();
    upstream.fail(Broken{4});
    EXPECT_EQ(log, Log{});
}

}  // namespace
}  // namespace quorin::rx
