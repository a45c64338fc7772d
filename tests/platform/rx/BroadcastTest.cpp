#include "quorin/platform/rx/Broadcast.hpp"
#include "quorin/platform/rx/Subscription.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace quorin::rx {
namespace {

TEST(Broadcast, ForgetsWhoLeft) {
    const auto subscription = std::make_shared<Subscription>([](const AnyEvent&) {});
    const Broadcast broadcast;
    const Disposable place = broadcast.subscribe(AnyObserver(subscription));
    EXPECT_EQ(subscription.use_count(), 2);
    place.dispose();
    EXPECT_EQ(subscription.use_count(), 1);
}

TEST(Broadcast, GivesTheEndToWhoComesAfterIt) {
    int calls = 0;
    const Broadcast broadcast;
    broadcast.send(AnyEvent::of(Event<int>::completed()));
    broadcast.subscribe(AnyObserver(std::make_shared<Subscription>([&](const AnyEvent&) { ++calls; })));
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace quorin::rx
