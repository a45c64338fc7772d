#include "quorin/platform/rx/Variable.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace quorin::rx {
namespace {

/// A handler that notes the event, and acts within the call for the one value.
template <class Act>
auto actingAt(int value, Log& log, std::string name, Act act) {
    return [&log, value, name = std::move(name), act = std::move(act)](const Event<int>& event) {
        log.push_back(entry(name, event));
        if (event.value() && *event.value() == value) act();
    };
}

TEST(HandlerOfACell, CompletesTheDeliveryUnderWayBeforeItsOwnAssignment) {
    Log log;
    Variable<int> cell(1);
    cell.asObservable().subscribe(into(log, "a"));
    cell.asObservable().subscribe(actingAt(2, log, "b", [&] {
        cell.assign(3);
        log.push_back("assigned");
    }));
    cell.asObservable().subscribe(into(log, "c"));
    log.clear();
    cell.assign(2);
    EXPECT_EQ(log, (Log{"a2", "b2", "c2", "a3", "b3", "c3", "assigned"}));
    EXPECT_EQ(cell.value(), 3);
}

TEST(HandlerOfACell, MayAssignAgainAndAgain) {
    Log log;
    Variable<int> cell(0);
    cell.asObservable().subscribe([&](const Event<int>& event) {
        log.push_back(entry("a", event));
        if (event.value() && *event.value() > 0) cell.assign(*event.value() - 1);
    });
    cell.asObservable().subscribe(into(log, "b"));
    log.clear();
    cell.assign(3);
    EXPECT_EQ(log, (Log{"a3", "b3", "a2", "b2", "a1", "b1", "a0", "b0"}));
}

TEST(HandlerOfACell, MayAssignTwiceInOneCall) {
    Log log;
    Variable<int> cell(1);
    cell.asObservable().subscribe(actingAt(2, log, "a", [&] {
        cell.assign(3);
        cell.assign(4);
    }));
    cell.asObservable().subscribe(into(log, "b"));
    log.clear();
    cell.assign(2);
    EXPECT_EQ(log, (Log{"a2", "b2", "a3", "b3", "a4", "b4"}));
}

TEST(HandlerOfACell, SeesTheValueThatItsOwnAssignmentLeft) {
    Variable<int> cell(1);
    int seen = 0;
    cell.asObservable().subscribe({.next = [&](int value) {
        if (value == 2) cell.assign(3);
        seen = cell.value();
    }});
    cell.assign(2);
    EXPECT_EQ(seen, 3);
}

TEST(HandlerOfACell, MayAssignAtItsFirstValue) {
    Log log;
    Variable<int> cell(1);
    cell.asObservable().subscribe(into(log, "a"));
    cell.asObservable().subscribe(actingAt(1, log, "b", [&] { cell.assign(2); }));
    EXPECT_EQ(log, (Log{"a1", "b1", "a2", "b2"}));
}

TEST(HandlerOfACell, DeliversAnAssignmentToAnIdleCellAtOnce) {
    Log log;
    Variable<int> other(0), cell(1);
    other.asObservable().subscribe(into(log, "o"));
    cell.asObservable().subscribe(actingAt(2, log, "a", [&] {
        other.assign(7);
        log.push_back("assigned");
    }));
    cell.asObservable().subscribe(into(log, "b"));
    log.clear();
    cell.assign(2);
    EXPECT_EQ(log, (Log{"a2", "o7", "assigned", "b2"}));
}

TEST(HandlerOfACell, KeepsTheOrderWhenAssignedByWayOfAnotherCell) {
    Log log;
    Variable<int> other(0), cell(1);
    other.asObservable().subscribe(actingAt(7, log, "o", [&] { cell.assign(3); }));
    cell.asObservable().subscribe(actingAt(2, log, "a", [&] { other.assign(7); }));
    cell.asObservable().subscribe(into(log, "b"));
    log.clear();
    cell.assign(2);
    EXPECT_EQ(log, (Log{"a2", "o7", "b2", "a3", "b3"}));
}

TEST(HandlerOfACell, GivesANewSubscriberTheValueOfTheMomentOnce) {
    Log log;
    Variable<int> cell(1);
    cell.asObservable().subscribe(actingAt(2, log, "a", [&] {
        cell.asObservable().subscribe(into(log, "new"));
        log.push_back("subscribed");
    }));
    cell.asObservable().subscribe(into(log, "b"));
    log.clear();
    cell.assign(2);
    cell.assign(3);
    EXPECT_EQ(log, (Log{"a2", "new2", "subscribed", "b2", "a3", "b3", "new3"}));
}

TEST(HandlerOfACell, GivesANewSubscriberNothingOlderThanItsFirstValue) {
    Log log;
    Variable<int> cell(1);
    cell.asObservable().subscribe(actingAt(2, log, "a", [&] { cell.assign(3); }));
    cell.asObservable().subscribe(actingAt(2, log, "b", [&] { cell.asObservable().subscribe(into(log, "new")); }));
    log.clear();
    cell.assign(2);
    EXPECT_EQ(log, (Log{"a2", "b2", "new3", "a3", "b3"}));
}

TEST(HandlerOfACell, LetsANewSubscriberAssignAtItsFirstValue) {
    Log log;
    Variable<int> cell(1);
    cell.asObservable().subscribe(actingAt(
        2, log, "a", [&] { cell.asObservable().subscribe(actingAt(2, log, "new", [&] { cell.assign(3); })); }));
    cell.asObservable().subscribe(into(log, "b"));
    log.clear();
    cell.assign(2);
    EXPECT_EQ(log, (Log{"a2", "new2", "b2", "a3", "b3", "new3"}));
}

TEST(HandlerOfACell, MayDisposeItself) {
    Log log;
    Disposable own;
    Variable<int> cell(1);
    own = cell.asObservable().subscribe(actingAt(2, log, "a", [&] { own.dispose(); }));
    cell.asObservable().subscribe(into(log, "b"));
    log.clear();
    cell.assign(2);
    cell.assign(3);
    EXPECT_EQ(log, (Log{"a2", "b2", "b3"}));
}

TEST(HandlerOfACell, KeepsALaterNeighbourItDisposesFromTheDeliveryUnderWay) {
    Log log;
    Disposable neighbour;
    Variable<int> cell(1);
    cell.asObservable().subscribe(actingAt(2, log, "a", [&] { neighbour.dispose(); }));
    neighbour = cell.asObservable().subscribe(into(log, "b"));
    cell.asObservable().subscribe(into(log, "c"));
    log.clear();
    cell.assign(2);
    EXPECT_EQ(log, (Log{"a2", "c2"}));
}

TEST(HandlerOfACell, MayDisposeAnEarlierNeighbour) {
    Log log;
    Disposable neighbour;
    Variable<int> cell(1);
    neighbour = cell.asObservable().subscribe(into(log, "a"));
    cell.asObservable().subscribe(actingAt(2, log, "b", [&] { neighbour.dispose(); }));
    cell.asObservable().subscribe(into(log, "c"));
    log.clear();
    cell.assign(2);
    cell.assign(3);
    EXPECT_EQ(log, (Log{"a2", "b2", "c2", "b3", "c3"}));
}

TEST(HandlerOfACell, MayDisposeItselfAndAssign) {
    Log log;
    Disposable own;
    Variable<int> cell(1);
    own = cell.asObservable().subscribe(actingAt(2, log, "a", [&] {
        own.dispose();
        cell.assign(3);
    }));
    cell.asObservable().subscribe(into(log, "b"));
    log.clear();
    cell.assign(2);
    EXPECT_EQ(log, (Log{"a2", "b2", "b3"}));
}

TEST(HandlerOfACell, MayDestroyTheCell) {
    Log log;
    std::optional<Variable<int>> cell(1);
    cell->asObservable().subscribe(actingAt(2, log, "a", [&] {
        cell.reset();
        log.push_back("destroyed");
    }));
    cell->asObservable().subscribe(into(log, "b"));
    log.clear();
    cell->assign(2);
    EXPECT_EQ(log, (Log{"a2", "b2", "a.", "b.", "destroyed"}));
}

TEST(HandlerOfACell, MayDropTheLastReferenceByDisposingItself) {
    Log log;
    auto cell = std::make_shared<Variable<int>>(1);
    Variable<int>& loan = *cell;
    Disposable own;
    own = cell->asObservable().subscribe([&, held = cell](const Event<int>& event) {
        log.push_back(entry("a", event));
        if (held->value() == 2) own.dispose();
    });
    cell->asObservable().subscribe(into(log, "b"));
    cell.reset();
    log.clear();
    loan.assign(2);
    EXPECT_EQ(log, (Log{"a2", "b2", "b."}));
}

TEST(HandlerOfACell, MaySubscribeToTheCellItDestroyed) {
    Log log;
    std::optional<Variable<int>> cell(1);
    const Observable<int> stream = cell->asObservable();
    stream.subscribe(actingAt(2, log, "a", [&] {
        cell.reset();
        stream.subscribe(into(log, "new"));
    }));
    log.clear();
    cell->assign(2);
    EXPECT_EQ(log, (Log{"a2", "a.", "new2", "new."}));
}

TEST(HandlerOfACell, MaySubscribeAtTheCompletion) {
    Log log;
    std::optional<Variable<int>> cell(1);
    const Observable<int> stream = cell->asObservable();
    stream.subscribe({.completed = [&] { stream.subscribe(into(log, "new")); }});
    stream.subscribe(into(log, "b"));
    log.clear();
    cell.reset();
    EXPECT_EQ(log, (Log{"new1", "new.", "b."}));
}

}  // namespace
}  // namespace quorin::rx
