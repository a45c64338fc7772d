#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Variable.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <latch>
#include <memory>
#include <optional>
#include <thread>

namespace quorin::rx {
namespace {

/// A cell whose value 2 is being delivered by a thread of its own, which stays in the first handler until it is let go.
class CellUnderDelivery {
public:
    CellUnderDelivery() {
        stream.subscribe([this](const Event<int>& event) {
            note("a", event);
            if (event.value() && *event.value() == 2) {
                entered_.count_down();
                released_.wait();
            }
        });
        stream.subscribe([this](const Event<int>& event) { note("b", event); });
        log.clear();
        threads.clear();
        thread_ = std::jthread([this] { cell->assign(2); });
        entered_.wait();
    }

    /// Runs `act` on this thread inside a handler of another stream.
    template <class Act>
    static void insideAHandler(Act act) {
        just(0).subscribe({.next = [&](int) { act(); }});
    }

    void note(const std::string& name, const Event<int>& event) {
        log.push_back(entry(name, event));
        threads.push_back(std::this_thread::get_id());
    }

    std::thread::id deliverer() const { return thread_.get_id(); }

    void letGo() { released_.count_down(); }

    void finish() {
        letGo();
        thread_.join();
    }

    Log log{};
    std::vector<std::thread::id> threads{};  ///< on which each entry of the log was made
    std::optional<Variable<int>> cell{1};
    Observable<int> stream = cell->asObservable();

private:
    std::latch entered_{1};
    std::latch released_{1};
    std::jthread thread_;
};

TEST(CellOnAnotherThread, HasItsNewValueDuringTheDelivery) {
    CellUnderDelivery test;
    EXPECT_EQ(test.cell->value(), 2);
    test.finish();
}

TEST(CellOnAnotherThread, IsHandedAnAssignmentFromInsideAHandler) {
    CellUnderDelivery test;
    const auto deliverer = test.deliverer();
    test.insideAHandler([&] { test.cell->assign(3); });
    EXPECT_EQ(test.cell->value(), 3);
    test.finish();
    EXPECT_EQ(test.log, (Log{"a2", "b2", "a3", "b3"}));
    EXPECT_EQ(test.threads, std::vector(4, deliverer));
}

TEST(CellOnAnotherThread, IsHandedAnAssignmentFromAValueReleasedDuringADelivery) {
    CellUnderDelivery test;
    const auto assign = [&](const int* value) {
        test.cell->assign(3);
        delete value;
    };
    Variable<std::shared_ptr<int>> other(nullptr);
    other.asObservable().subscribe({.next = [&](const std::shared_ptr<int>& value) {
        if (value) other.assign(nullptr);
    }});
    other.assign(std::shared_ptr<int>(new int(0), assign));
    EXPECT_EQ(test.cell->value(), 3);
    test.finish();
    EXPECT_EQ(test.log, (Log{"a2", "b2", "a3", "b3"}));
}

TEST(CellOnAnotherThread, KeepsTheOrderOfWhatItIsHanded) {
    CellUnderDelivery test;
    test.insideAHandler([&] {
        test.cell->assign(3);
        test.cell->assign(4);
    });
    EXPECT_EQ(test.cell->value(), 4);
    test.finish();
    EXPECT_EQ(test.log, (Log{"a2", "b2", "a3", "b3", "a4", "b4"}));
}

TEST(CellOnAnotherThread, IsHandedASubscriptionFromInsideAHandler) {
    CellUnderDelivery test;
    const auto deliverer = test.deliverer();
    test.insideAHandler([&] {
        test.cell->assign(3);
        test.stream.subscribe([&](const Event<int>& event) { test.note("new", event); });
        test.cell->assign(4);
    });
    test.finish();
    EXPECT_EQ(test.log, (Log{"a2", "b2", "a3", "b3", "new3", "a4", "b4", "new4"}));
    EXPECT_EQ(test.threads, std::vector(8, deliverer));
}

TEST(CellOnAnotherThread, ForgetsAHandedSubscriptionThatWasDisposed) {
    CellUnderDelivery test;
    test.insideAHandler([&] { test.stream.subscribe(into(test.log, "new")).dispose(); });
    test.finish();
    EXPECT_EQ(test.log, (Log{"a2", "b2"}));
}

TEST(CellOnAnotherThread, IsHandedItsCompletionFromInsideAHandler) {
    CellUnderDelivery test;
    test.insideAHandler([&] { test.cell.reset(); });
    test.finish();
    EXPECT_EQ(test.log, (Log{"a2", "b2", "a.", "b."}));
}

TEST(CellOnAnotherThread, DeliversNoMoreToWhoIsDisposedHere) {
    CellUnderDelivery test;
    Disposable subscription;
    test.insideAHandler([&] { subscription = test.stream.subscribe(into(test.log, "new")); });
    test.insideAHandler([&] { test.cell->assign(3); });
    subscription.dispose();
    test.finish();
    EXPECT_EQ(test.log, (Log{"a2", "b2", "a3", "b3"}));
}

TEST(CellOnAnotherThread, IsWaitedForByAnAssignmentOutsideHandlers) {
    CellUnderDelivery test;
    const auto deliverer = test.deliverer();
    std::latch started(1);
    std::jthread assigning([&] {
        started.count_down();
        test.cell->assign(3);
        test.log.push_back("assigned");
    });
    const auto assigner = assigning.get_id();
    started.wait();
    EXPECT_EQ(test.cell->value(), 2);
    test.finish();
    assigning.join();
    EXPECT_EQ(test.log, (Log{"a2", "b2", "a3", "b3", "assigned"}));
    EXPECT_EQ(test.threads, (std::vector{deliverer, deliverer, assigner, assigner}));
}

TEST(CellOnAnotherThread, IsWaitedForByASubscriptionOutsideHandlers) {
    CellUnderDelivery test;
    std::latch started(1);
    std::jthread subscribing([&] {
        started.count_down();
        test.stream.subscribe([&](const Event<int>& event) { test.note("new", event); });
    });
    const auto subscriber = subscribing.get_id();
    started.wait();
    test.finish();
    subscribing.join();
    EXPECT_EQ(test.log, (Log{"a2", "b2", "new2"}));
    EXPECT_EQ(test.threads.back(), subscriber);
}

TEST(CellsOfTwoThreads, AssignOneAnotherWithoutDeadlock) {
    Variable<int> left(0), right(0);
    std::latch bothDeliver(2);
    const auto crossing = [&](Variable<int>& other) {
        return [&](int value) {
            if (value != 1) return;
            bothDeliver.arrive_and_wait();
            other.assign(2);
        };
    };
    left.asObservable().subscribe({.next = crossing(right)});
    right.asObservable().subscribe({.next = crossing(left)});
    std::jthread first([&] { left.assign(1); });
    std::jthread second([&] { right.assign(1); });
    first.join();
    second.join();
    EXPECT_EQ(left.value(), 2);
    EXPECT_EQ(right.value(), 2);
}

}  // namespace
}  // namespace quorin::rx
