#include "quorin/platform/rx/Observable.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace quorin::rx {
namespace {

/// A stream whose observer the test has, with a handler: what becomes of both is in the log.
struct Followed {
    Log log{};
    Observer<int> observer{};
    Observable<int> stream{[this](Observer<int> subscriber) {
        observer = std::move(subscriber);
        return Disposable([this] { log.emplace_back("upstream disposed"); });
    }};
    std::shared_ptr<void> held{nullptr, [this](void*) { log.emplace_back("handler released"); }};
    Disposable subscription = stream.subscribe(
        [this, kept = std::exchange(held, {})](const Event<int>& event) { log.push_back(entry("a", event)); });
};

TEST(Subscription, ReleasesItsHandlerAfterTheEndAndBeforeTheUpstreamIsDisposed) {
    Followed followed;
    followed.observer.complete();
    EXPECT_EQ(followed.log, (Log{"a.", "handler released", "upstream disposed"}));
}

TEST(Subscription, ReleasesItsHandlerWhereItIsDisposedBeforeTheUpstreamIs) {
    Followed followed;
    followed.subscription.dispose();
    EXPECT_EQ(followed.log, (Log{"handler released", "upstream disposed"}));
}

TEST(Subscription, KeepsItsHandlerBetweenValues) {
    Followed followed;
    followed.observer.next(1);
    EXPECT_EQ(followed.log, Log{"a1"});
}

}  // namespace
}  // namespace quorin::rx
