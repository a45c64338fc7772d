#include "quorin/platform/rx/DistinctUntilChanged.hpp"
#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Variable.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

namespace quorin::rx {
namespace {

TEST(DistinctUntilChanged, LeavesOutWhatEqualsTheLastDelivered) {
    Log log;
    Variable<int> cell(1);
    distinctUntilChanged(cell.asObservable()).subscribe(into(log, "a"));
    for (const int value : {1, 2, 2, 1}) cell.assign(value);
    EXPECT_EQ(log, (Log{"a1", "a2", "a1"}));
}

TEST(DistinctUntilChanged, ComparesWithTheLastDeliveredAndNotTheLastSeen) {
    Log log;
    Variable<int> cell(1);
    const auto isNear = [](int left, int right) { return right - left < 2; };
    distinctUntilChanged(cell.asObservable(), isNear).subscribe(into(log, "a"));
    for (const int value : {2, 3, 4, 5}) cell.assign(value);
    EXPECT_EQ(log, (Log{"a1", "a3", "a5"}));
}

TEST(DistinctUntilChanged, ComparesForEachSubscriptionByItself) {
    Log log;
    Variable<int> cell(1);
    const auto stream = distinctUntilChanged(cell.asObservable());
    stream.subscribe(into(log, "a"));
    stream.subscribe(into(log, "b"));
    cell.assign(1);
    EXPECT_EQ(log, (Log{"a1", "b1"}));
}

TEST(DistinctUntilChanged, KnowsTheValueUnderWayWhenItsHandlerAssigns) {
    Log log;
    Variable<int> cell(1);
    distinctUntilChanged(cell.asObservable()).subscribe([&](const Event<int>& event) {
        log.push_back(entry("a", event));
        if (event.value() && *event.value() == 2) cell.assign(2);
        if (event.value() && *event.value() == 3) cell.assign(1);
    });
    cell.assign(2);
    cell.assign(3);
    cell.assign(1);
    EXPECT_EQ(log, (Log{"a1", "a2", "a3", "a1"}));
}

TEST(DistinctUntilChanged, PassesTheEndOn) {
    Log log;
    distinctUntilChanged(just(1)).subscribe(into(log, "a"));
    distinctUntilChanged(error<int>(Broken{})).subscribe(into(log, "b"));
    EXPECT_EQ(log, (Log{"a1", "a.", "b!"}));
}

}  // namespace
}  // namespace quorin::rx
