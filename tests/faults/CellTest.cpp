// An assignment for which memory is missing happens as a whole or not at all, and says so.
#include "quorin/platform/rx/DistinctUntilChanged.hpp"
#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Map.hpp"
#include "quorin/platform/rx/Share.hpp"
#include "quorin/platform/rx/Variable.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "tests/faults/EachAllocation.hpp"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

namespace quorin::rx {
namespace {

using faults::Failed;

const std::string first = "the first value, which takes memory";
const std::string second = "the second value, which takes memory too";

using Text = std::shared_ptr<const std::string>;

/// A cell of texts with three subscribers, which take no memory.
class CellWithoutMemory : public testing::Test {
protected:
    CellWithoutMemory() {
        for (Text& seen : seen_) cell_.asObservable().subscribe({.next = [&seen](const Text& text) { seen = text; }});
    }

    void assignTheOther() {
        before_ = cell_.value();
        cell_.assign(before_ == first_ ? second_ : first_);
    }

    void expectAll(const Text& text) const {
        EXPECT_EQ(cell_.value(), text);
        for (const Text& seen : seen_) EXPECT_EQ(seen, text);
    }

    const Text first_ = std::make_shared<const std::string>(first);
    const Text second_ = std::make_shared<const std::string>(second);
    std::array<Text, 3> seen_{};
    Text before_{};
    Variable<Text> cell_{first_};
};

TEST_F(CellWithoutMemory, KeepsItsValueForAllOrChangesItForAll) {
    EXPECT_GT(faults::failEach([this] { assignTheOther(); },
                               [this](const Failed& failed) {
                                   EXPECT_TRUE(failed.isThrown);
                                   expectAll(before_);
                               }),
              0);
    EXPECT_NE(cell_.value(), before_);
    expectAll(cell_.value());
}

TEST_F(CellWithoutMemory, GivesTheOthersWhatOneHasNoMemoryFor) {
    Text last;
    cell_.asObservable().subscribe({.next = [](const Text& text) { delete new std::string(*text); }});
    cell_.asObservable().subscribe({.next = [&last](const Text& text) { last = text; }});
    EXPECT_GT(faults::failEach([this] { assignTheOther(); },
                               [&](const Failed& failed) {
                                   EXPECT_TRUE(failed.isThrown);
                                   expectAll(cell_.value());
                                   EXPECT_EQ(last, cell_.value());
                               }),
              1);  // the event's own, and those of the handler
}

TEST_F(CellWithoutMemory, HasNoSubscriberThatIsNotToldSo) {
    std::array<Disposable, 4> others;  // whose room in the cell stays
    for (Disposable& other : others) other = cell_.asObservable().subscribe(Handlers<Text>{});
    for (const Disposable& other : others) other.dispose();
    int calls = 0;
    const auto subscribe = [&] {
        cell_.asObservable().subscribe({.next = [&calls](const Text& text) {
            const auto copy = std::make_unique<std::string>(*text);
            ++calls;
        }});
    };
    EXPECT_GT(faults::failEach(subscribe,
                               [&](const Failed& failed) {
                                   EXPECT_TRUE(failed.isThrown);
                                   EXPECT_EQ(failed.kept, 0);
                                   calls = 0;
                                   cell_.assign(second_);
                                   EXPECT_LE(calls, 1);  // of the one that was subscribed at the end of a round
                               }),
              3);
}

TEST_F(CellWithoutMemory, LeavesASharedStreamThatConnectsLater) {
    int calls = 0;
    const auto follow = [&](const Observable<Text>& stream) {
        return stream.subscribe({.next = [&calls](const Text&) { ++calls; }});
    };
    long count = 0;
    for (;; ++count) {
        const auto stream = share(cell_.asObservable());
        Failed failed;
        const bool hasFailed = faults::fails(count, faults::Then::succeeds, [&] { follow(stream); }, failed);
        if (!hasFailed) break;
        EXPECT_TRUE(failed.isThrown) << count;
        calls = 0;
        const Disposable later = follow(stream);
        EXPECT_EQ(calls, 1) << count;
        cell_.assign(second_);
        EXPECT_EQ(calls, 2) << count;
        later.dispose();
    }
    EXPECT_GT(count, 5);
}

TEST_F(CellWithoutMemory, TakesNoneForAnAssignmentThroughASharedStreamBeyondTheEvent) {
    const auto stream = share(cell_.asObservable());
    int calls = 0;
    for (int i = 0; i < 3; ++i) stream.subscribe({.next = [&calls](const Text&) { ++calls; }});
    for (int i = 0; i < 100; ++i) EXPECT_EQ(faults::takenBy([&] { cell_.assign(second_); }).allocations, 1) << i;
    EXPECT_EQ(calls, 301);
}

TEST_F(CellWithoutMemory, GivesAValueAgainWhoseDeliveryFailed) {
    int calls = 0;
    distinctUntilChanged(cell_.asObservable()).subscribe({.next = [&calls](const Text& text) {
        const auto copy = std::make_unique<std::string>(*text);
        ++calls;
    }});
    faults::failAfter(1);  // the first is the event
    EXPECT_THROW(cell_.assign(second_), std::bad_alloc);
    EXPECT_TRUE(faults::stopFailing());
    cell_.assign(second_);
    EXPECT_EQ(calls, 2);
}

TEST_F(CellWithoutMemory, EndsAMappedStreamWhoseFunctionHasNone) {
    bool isNoMemory = false;
    std::size_t size = 0;
    map(cell_.asObservable(), [](const Text& text) { return std::string(*text + "!"); })
        .subscribe({.next = [&](const std::string& text) { size = text.size(); },
                    .error = [&](const Error& error) { isNoMemory = error.as<NoMemory>() != nullptr; }});
    EXPECT_EQ(size, first.size() + 1);
    faults::failAfter(1);
    cell_.assign(second_);
    EXPECT_TRUE(faults::stopFailing());
    EXPECT_TRUE(isNoMemory);
}

TEST(CellWithMemory, CompletesAtItsEndWithoutAny) {
    bool isCompleted = false;
    auto cell = std::make_unique<Variable<std::string>>(first);
    cell->asObservable().subscribe({.completed = [&] { isCompleted = true; }});
    faults::failAfter(0, faults::Then::fails);
    cell.reset();
    EXPECT_FALSE(faults::stopFailing());
    EXPECT_TRUE(isCompleted);
}

TEST(CellWithMemory, IsMadeWholeOrNotAtAll) {
    EXPECT_GT(faults::failEachAndKeepNothing([] {
                  const Variable<std::string> cell(first);
                  EXPECT_EQ(cell.value(), first);
              }),
              3);
}

TEST(WaitWithoutMemory, YieldsTheValueOrAnErrorOrThrows) {
    const auto stream = just(first);
    EXPECT_GT(faults::failEachAndKeepNothing([&] {
                  const auto result = wait(stream);
                  EXPECT_TRUE(result ? *result == first : result.error().as<NoMemory>() != nullptr);
              }),
              3);
}

}  // namespace
}  // namespace quorin::rx
