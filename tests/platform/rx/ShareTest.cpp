#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Map.hpp"
#include "quorin/platform/rx/Share.hpp"
#include "quorin/platform/rx/Variable.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace quorin::rx {
namespace {

/// A stream that counts its connections and whose last observer the test delivers to by hand.
struct Upstream {
    int connected = 0;
    int disconnected = 0;
    Observer<int> observer{};
    Observable<int> stream{[this](Observer<int> subscriber) {
        ++connected;
        observer = std::move(subscriber);
        return Disposable([this] { ++disconnected; });
    }};
};

TEST(Share, ConnectsWithTheFirstSubscriberOnly) {
    Upstream upstream;
    const auto shared = share(upstream.stream);
    EXPECT_EQ(upstream.connected, 0);
    shared.subscribe(Handlers<int>{});
    shared.subscribe(Handlers<int>{});
    EXPECT_EQ(upstream.connected, 1);
}

TEST(Share, DisconnectsWhenTheLastSubscriberLeaves) {
    Upstream upstream;
    const auto shared = share(upstream.stream);
    const Disposable first = shared.subscribe(Handlers<int>{});
    const Disposable second = shared.subscribe(Handlers<int>{});
    first.dispose();
    first.dispose();
    EXPECT_EQ(upstream.disconnected, 0);
    second.dispose();
    EXPECT_EQ(upstream.disconnected, 1);
}

TEST(Share, ConnectsAnewAfterTheLastSubscriberLeft) {
    Log log;
    Upstream upstream;
    const auto shared = share(upstream.stream);
    shared.subscribe(into(log, "a")).dispose();
    shared.subscribe(into(log, "b"));
    EXPECT_EQ(upstream.connected, 2);
    upstream.observer.next(1);
    EXPECT_EQ(log, Log{"b1"});
}

TEST(Share, DeliversToAllSubscribers) {
    Log log;
    Upstream upstream;
    const auto shared = share(upstream.stream);
    shared.subscribe(into(log, "a"));
    shared.subscribe(into(log, "b"));
    upstream.observer.next(1);
    EXPECT_EQ(log, (Log{"a1", "b1"}));
}

TEST(Share, ReplaysNothing) {
    Log log;
    Upstream upstream;
    const auto shared = share(upstream.stream);
    shared.subscribe(into(log, "a"));
    upstream.observer.next(1);
    shared.subscribe(into(log, "b"));
    EXPECT_EQ(log, Log{"a1"});
    upstream.observer.next(2);
    EXPECT_EQ(log, (Log{"a1", "a2", "b2"}));
}

TEST(Share, GivesTheFirstSubscriberWhatComesWithTheConnection) {
    Log log;
    Variable<int> cell(1);
    const auto shared = share(cell.asObservable());
    shared.subscribe(into(log, "a"));
    shared.subscribe(into(log, "b"));
    EXPECT_EQ(log, Log{"a1"});
}

TEST(Share, EndsForAllSubscribers) {
    Log log;
    Upstream upstream;
    const auto shared = share(upstream.stream);
    shared.subscribe(into(log, "a"));
    shared.subscribe(into(log, "b"));
    upstream.observer.fail(Broken{});
    EXPECT_EQ(log, (Log{"a!", "b!"}));
    EXPECT_EQ(upstream.disconnected, 1);
}

TEST(Share, ConnectsAnewAfterTheEnd) {
    Log log;
    Upstream upstream;
    const auto shared = share(upstream.stream);
    shared.subscribe(into(log, "a"));
    upstream.observer.complete();
    shared.subscribe(into(log, "b"));
    upstream.observer.next(1);
    EXPECT_EQ(log, (Log{"a.", "b1"}));
    EXPECT_EQ(upstream.connected, 2);
}

TEST(Share, ConnectsAnewInTheHandlerOfTheEnd) {
    Log log;
    Upstream upstream;
    const auto shared = share(upstream.stream);
    shared.subscribe({.completed = [&] { shared.subscribe(into(log, "new")); }});
    shared.subscribe(into(log, "b"));
    upstream.observer.complete();
    EXPECT_EQ(upstream.connected, 2);
    EXPECT_EQ(log, Log{"b."});
    upstream.observer.next(1);
    EXPECT_EQ(log, (Log{"b.", "new1"}));
}

TEST(Share, EndsWithAStreamThatEndsAtOnce) {
    Log log;
    const auto shared = share(just(1));
    shared.subscribe(into(log, "a"));
    shared.subscribe(into(log, "b"));
    EXPECT_EQ(log, (Log{"a1", "a.", "b1", "b."}));
}

TEST(Share, KeepsTheOneOrderWhenASubscriberAssignsTheCell) {
    Log log;
    Variable<int> cell(0);
    const auto shared = share(cell.asObservable());
    shared.subscribe([&](const Event<int>& event) {
        log.push_back(entry("a", event));
        if (event.value() && *event.value() == 1) cell.assign(2);
    });
    shared.subscribe(into(log, "b"));
    cell.asObservable().subscribe(into(log, "d"));
    log.clear();
    cell.assign(1);
    EXPECT_EQ(log, (Log{"a1", "d1", "b1", "a2", "b2", "d2"}));
}

TEST(Share, GivesANewSubscriberInAHandlerOnlyWhatComesLater) {
    Log log;
    Upstream upstream;
    const auto shared = share(upstream.stream);
    shared.subscribe([&](const Event<int>& event) {
        log.push_back(entry("a", event));
        if (event.value() && *event.value() == 1) shared.subscribe(into(log, "new"));
    });
    upstream.observer.next(1);
    upstream.observer.next(2);
    EXPECT_EQ(log, (Log{"a1", "a2", "new2"}));
}

TEST(Share, DisconnectsInTheHandlerOfTheLastToLeave) {
    Log log;
    Disposable own;
    Variable<int> cell(0);
    const auto shared = share(cell.asObservable());
    own = shared.subscribe([&](const Event<int>& event) {
        log.push_back(entry("a", event));
        if (event.value() && *event.value() == 1) own.dispose();
    });
    cell.assign(1);
    cell.assign(2);
    EXPECT_EQ(log, (Log{"a0", "a1"}));
}

TEST(Share, LeavesWithASubscriberThatFailedWhileItConnected) {
    Upstream upstream;
    const Observable<int> eager([&](const Observer<int>& observer) {
        observer.next(1);
        return Disposable([&] { ++upstream.disconnected; });
    });
    map(share(eager), [](int) -> Result<int> { return Broken{}; }).subscribe(Handlers<int>{});
    EXPECT_EQ(upstream.disconnected, 1);
}

TEST(Share, CountsThoseOfAnUpstreamThatKeepsNoObserver) {
    int connected = 0, disconnected = 0;
    const Observable<int> never([&](const Observer<int>&) {
        ++connected;
        return Disposable([&] { ++disconnected; });
    });
    const auto shared = share(never);
    const Disposable first = shared.subscribe(Handlers<int>{});
    const Disposable second = shared.subscribe(Handlers<int>{});
    first.dispose();
    EXPECT_EQ(disconnected, 0);
    second.dispose();
    EXPECT_EQ(connected, 1);
    EXPECT_EQ(disconnected, 1);
}

TEST(Share, GoesOnWhenTheSharedStreamIsDropped) {
    Log log;
    Upstream upstream;
    const Disposable subscription = share(upstream.stream).subscribe(into(log, "a"));
    upstream.observer.next(1);
    EXPECT_EQ(log, Log{"a1"});
    subscription.dispose();
    EXPECT_EQ(upstream.disconnected, 1);
}

TEST(Share, ReleasesItsSubscribersWhenTheSourceForgetsThem) {
    const auto held = std::make_shared<int>();
    Upstream upstream;
    share(upstream.stream).subscribe([held](const Event<int>&) {});
    EXPECT_EQ(held.use_count(), 2);
    upstream.observer = {};
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Share, ReleasesAHandlerThatHoldsTheSharedStream) {
    const auto held = std::make_shared<int>();
    {
        Variable<int> cell(1);
        const auto shared = share(cell.asObservable());
        shared.subscribe([held, shared](const Event<int>&) {});
        EXPECT_EQ(held.use_count(), 2);
    }
    EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace quorin::rx
