#include "quorin/platform/rx/Observable.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <latch>
#include <memory>
#include <optional>
#include <stdexcept>
#include <thread>

namespace quorin::rx {
namespace {

/// A stream whose one subscriber the test delivers to by hand.
struct Manual {
    Observer<int> observer{};
    Disposable upstream{[] {}};
    Observable<int> stream{[this](Observer<int> subscriber) {
        observer = std::move(subscriber);
        return upstream;
    }};
};

TEST(Observable, RunsItsSourceForEachSubscription) {
    int runs = 0;
    const Observable<int> stream([&](const Observer<int>& observer) {
        observer.next(++runs);
        return Disposable();
    });
    Log log;
    stream.subscribe(into(log, "a"));
    stream.subscribe(into(log, "b"));
    EXPECT_EQ(log, (Log{"a1", "b2"}));
}

TEST(Observable, EndsOnceWithCompletion) {
    Manual manual;
    Log log;
    manual.stream.subscribe(into(log, "a"));
    manual.observer.next(1);
    manual.observer.complete();
    manual.observer.next(2);
    manual.observer.fail(Broken{});
    manual.observer.complete();
    EXPECT_EQ(log, (Log{"a1", "a."}));
}

TEST(Observable, EndsOnceWithAnError) {
    Manual manual;
    Log log;
    manual.stream.subscribe(into(log, "a"));
    manual.observer.fail(Broken{});
    manual.observer.next(2);
    manual.observer.complete();
    EXPECT_EQ(log, (Log{"a!"}));
}

TEST(Observable, CallsTheHandlerOfEachKindOfEvent) {
    Manual manual;
    Log log;
    const Handlers<int> handlers{.next = [&](int value) { log.push_back("next " + std::to_string(value)); },
                                 .error = [&](const Error& error) { log.push_back(error.description()); },
                                 .completed = [&] { log.push_back("completed"); }};
    manual.stream.subscribe(handlers);
    manual.observer.next(1);
    manual.observer.fail(Broken{5});
    manual.stream.subscribe(handlers);
    manual.observer.complete();
    EXPECT_EQ(log, (Log{"next 1", "broken 5", "completed"}));
}

TEST(Observable, PassesOverEventsWithoutAHandler) {
    Manual manual;
    manual.stream.subscribe(Handlers<int>{});
    manual.observer.next(1);
    manual.observer.fail(Broken{});
    manual.stream.subscribe(Observable<int>::Handler());
    manual.observer.complete();
    EXPECT_TRUE(manual.observer.isDisposed());
}

TEST(Observable, DeliversNothingAfterItWasDisposed) {
    Manual manual;
    Log log;
    const Disposable subscription = manual.stream.subscribe(into(log, "a"));
    manual.observer.next(1);
    subscription.dispose();
    manual.observer.next(2);
    manual.observer.complete();
    EXPECT_EQ(log, Log{"a1"});
    EXPECT_TRUE(manual.observer.isDisposed());
}

TEST(Observable, DeliversNothingAfterAHandlerDisposedItself) {
    Manual manual;
    Log log;
    Disposable subscription;
    subscription = manual.stream.subscribe([&](const Event<int>& event) {
        log.push_back(entry("a", event));
        subscription.dispose();
    });
    manual.observer.next(1);
    manual.observer.next(2);
    EXPECT_EQ(log, Log{"a1"});
}

TEST(Observable, FinishesTheCallUnderWayWhenAnotherThreadDisposes) {
    Manual manual;
    Log log;
    std::latch entered(1), disposed(1);
    const Disposable subscription = manual.stream.subscribe([&](const Event<int>& event) {
        entered.count_down();
        disposed.wait();
        log.push_back(entry("a", event));
    });
    std::jthread delivering([&] {
        manual.observer.next(1);
        manual.observer.next(2);
    });
    entered.wait();
    subscription.dispose();
    disposed.count_down();
    delivering.join();
    EXPECT_EQ(log, Log{"a1"});
}

TEST(Observable, DisposesWhatIsUpstreamWhenDisposed) {
    Manual manual;
    const Disposable subscription = manual.stream.subscribe(Handlers<int>{});
    EXPECT_FALSE(manual.upstream.isDisposed());
    subscription.dispose();
    EXPECT_TRUE(manual.upstream.isDisposed());
}

TEST(Observable, DisposesWhatIsUpstreamAtTheEnd) {
    Manual completing, failing;
    completing.stream.subscribe(Handlers<int>{});
    failing.stream.subscribe(Handlers<int>{});
    completing.observer.complete();
    failing.observer.fail(Broken{});
    EXPECT_TRUE(completing.upstream.isDisposed());
    EXPECT_TRUE(failing.upstream.isDisposed());
}

TEST(Observable, DisposesWhatIsUpstreamWhenTheEndCameBeforeIt) {
    const Disposable upstream([] {});
    const Observable<int> stream([&](const Observer<int>& observer) {
        observer.complete();
        EXPECT_FALSE(upstream.isDisposed());
        return upstream;
    });
    stream.subscribe(Handlers<int>{});
    EXPECT_TRUE(upstream.isDisposed());
}

TEST(Observable, DisposesWhatIsUpstreamOfASourceThatKeepsNoObserver) {
    const Disposable upstream([] {});
    const Observable<int> never([&](const Observer<int>&) { return upstream; });
    const Disposable subscription = never.subscribe(Handlers<int>{});
    EXPECT_FALSE(upstream.isDisposed());
    subscription.dispose();
    EXPECT_TRUE(upstream.isDisposed());
}

TEST(Observable, GoesOnWhenTheHandleIsDropped) {
    Manual manual;
    Log log;
    {
        const Disposable dropped = manual.stream.subscribe(into(log, "a"));
    }
    manual.observer.next(1);
    EXPECT_EQ(log, Log{"a1"});
    EXPECT_FALSE(manual.upstream.isDisposed());
}

TEST(Observable, ReleasesTheHandlerAtTheEnd) {
    Manual manual;
    const auto held = std::make_shared<int>();
    manual.stream.subscribe([held](const Event<int>&) {});
    EXPECT_EQ(held.use_count(), 2);
    manual.observer.complete();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Observable, ReleasesTheHandlerWhenDisposed) {
    Manual manual;
    const auto held = std::make_shared<int>();
    const Disposable subscription = manual.stream.subscribe([held](const Event<int>&) {});
    EXPECT_EQ(held.use_count(), 2);
    subscription.dispose();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Observable, ReleasesAHandlerThatHoldsItsOwnHandle) {
    Manual manual;
    const auto held = std::make_shared<Disposable>();
    *held = manual.stream.subscribe([held](const Event<int>&) { held->dispose(); });
    EXPECT_EQ(held.use_count(), 2);
    manual.observer.next(1);
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Observable, ReleasesTheHandlerWhenTheSourceForgetsIt) {
    Manual manual;
    const auto held = std::make_shared<Disposable>();
    *held = manual.stream.subscribe([held](const Event<int>&) { held->dispose(); });
    manual.observer = {};
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Observable, KeepsTheHandlerWhileItRuns) {
    Manual manual;
    Disposable subscription;
    const auto held = std::make_shared<int>();
    long duringTheCall = 0;
    subscription = manual.stream.subscribe([&, held](const Event<int>&) {
        subscription.dispose();
        duringTheCall = held.use_count();
    });
    manual.observer.next(1);
    EXPECT_EQ(duringTheCall, 2);
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Observable, MayBeDroppedByItsOwnHandler) {
    Log log;
    std::optional<Observable<int>> stream;
    stream.emplace([](const Observer<int>& observer) {
        observer.next(1);
        observer.next(2);
        observer.complete();
        return Disposable();
    });
    stream->subscribe([&](const Event<int>& event) {
        stream.reset();
        log.push_back(entry("a", event));
    });
    EXPECT_EQ(log, (Log{"a1", "a2", "a."}));
}

TEST(Observable, LetsItsObserverBeDroppedInTheCallItMakes) {
    Manual manual;
    Log log;
    manual.stream.subscribe([&](const Event<int>& event) {
        manual.observer = {};
        log.push_back(entry("a", event));
    });
    manual.observer.next(1);
    EXPECT_EQ(log, Log{"a1"});
}

TEST(Observer, ReachesNobodyWhenItIsEmpty) {
    const Observer<int> nobody;
    nobody.next(1);
    EXPECT_TRUE(nobody.isDisposed());
}

TEST(ObservableDeathTest, EndsTheProcessWhenAHandlerThrows) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    Manual manual;
    manual.stream.subscribe([](const Event<int>&) { throw std::runtime_error("thrown by a handler"); });
    const auto deliver = [&] {
        try {
            manual.observer.next(1);
        } catch (...) {
        }
    };
    EXPECT_DEATH(deliver(), "thrown by a handler");
}

}  // namespace
}  // namespace quorin::rx
