#include "quorin/core/ConfigurationManager.hpp"

#include "tests/context/Testbed.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace quorin {
namespace {

using testing::ElementsAre;
using Instance = ConfigurationManager::Instance;
using Log = std::vector<std::string>;
using OptionalText = std::optional<std::string>;

constexpr const char* accountKey = "com.vexodigitalMedia.kova";
constexpr const char* tokenKey = "com.vexodigitalMedia.profileJWT";
constexpr const char* parentKey = "com.vexodigitalMedia.parent.profileID";
constexpr const char* childKey = "com.vexodigitalMedia.child.profileID";

/// An instance on a file, and what the handlers of its account have seen.
struct HandlerOfTheIdentity : testing::Test {
    const Testbed bed{};
    Instance manager{bed.start()};
    Log log{};

    /// Notes each account behind `name`.
    rx::Disposable noteAccounts(const std::string& name) {
        return manager.kovaObserver().subscribe(
            {.next = [this, name](const OptionalText& value) { log.push_back(name + value.value_or("none")); }});
    }
    template <class Work>
    rx::Disposable atAccount(const std::string& wanted, Work work) {
        return manager.kovaObserver().subscribe({.next = [wanted, work](const OptionalText& value) {
            if (value == wanted) work();
        }});
    }
};

TEST_F(HandlerOfTheIdentity, AssigningItsOwnCellIsSeenByAllInOneOrder) {
    noteAccounts("before ");
    atAccount("a", [this] {
        manager.setKova("b");
        log.emplace_back("assigned " + *manager.kova() + ", stored " + *bed.stored(accountKey));
    });
    noteAccounts("after ");
    manager.setKova("a");
    EXPECT_THAT(log, ElementsAre("before a", "after a", "before b", "after b", "assigned b, stored b"));
    EXPECT_EQ(manager.kova(), "b");
    EXPECT_EQ(bed.stored(accountKey), "b");
}

TEST_F(HandlerOfTheIdentity, MayTakeBackWhatWasAssigned) {
    atAccount("a", [this] { manager.setKova(std::nullopt); });
    noteAccounts("");
    manager.setKova("a");
    EXPECT_THAT(log, ElementsAre("a", "none"));
    EXPECT_EQ(bed.stored(accountKey), std::nullopt);
}

TEST_F(HandlerOfTheIdentity, AssigningAnotherCellIsDeliveredAndStoredAtOnce) {
    manager.profileJWTObserver().subscribe(
        {.next = [this](const OptionalText& value) { log.push_back("token " + value.value_or("none")); }});
    atAccount("a", [this] {
        manager.setProfileJWT("t");
        log.emplace_back("stored " + *bed.stored(tokenKey));
    });
    noteAccounts("account ");
    manager.setKova("a");
    EXPECT_THAT(log, ElementsAre("token t", "stored t", "account a"));
    EXPECT_EQ(manager.profileJWT(), "t");
}

TEST_F(HandlerOfTheIdentity, MayAssignByWayOfAnotherCell) {
    manager.parentProfileIDObserver().subscribe(
        {.next = [this](const std::string& value) { manager.setChildProfileID(value + "c"); }});
    manager.childProfileIDObserver().subscribe({.next = [this](const std::string& value) {
        if (value.size() < 6) manager.setParentProfileID(value + "p");
    }});
    manager.childProfileIDObserver().subscribe({.next = [this](const std::string& value) { log.push_back(value); }});
    manager.setParentProfileID("p");
    EXPECT_THAT(log, ElementsAre("pc", "pcpc", "pcpcpc"));
    EXPECT_EQ(manager.parentProfileID() + " " + manager.childProfileID(), "pcpcp pcpcpc");
    EXPECT_EQ(*bed.stored(parentKey) + " " + *bed.stored(childKey), "pcpcp pcpcpc");
}

TEST_F(HandlerOfTheIdentity, SubscribingWaitsForTheNextAssignment) {
    atAccount("a", [this] { noteAccounts("new "); });
    manager.setKova("a");
    manager.setKova("b");
    EXPECT_THAT(log, ElementsAre("new b"));
}

TEST_F(HandlerOfTheIdentity, MayDisposeItself) {
    rx::Disposable own;
    own = manager.kovaObserver().subscribe({.next = [this, &own](const OptionalText& value) {
        own.dispose();
        log.push_back(*value);
    }});
    manager.setKova("a");
    manager.setKova("b");
    EXPECT_THAT(log, ElementsAre("a"));
    EXPECT_EQ(bed.stored(accountKey), "b");
}

TEST_F(HandlerOfTheIdentity, MayDisposeItsNeighbours) {
    rx::Disposable earlier = noteAccounts("earlier ");
    rx::Disposable later;
    atAccount("a", [&] { earlier.dispose(), later.dispose(); });
    later = noteAccounts("later ");
    manager.setKova("a");
    manager.setKova("b");
    EXPECT_THAT(log, ElementsAre("earlier a"));
    EXPECT_EQ(bed.stored(accountKey), "b");
}

TEST_F(HandlerOfTheIdentity, MayDisposeAllAndAssign) {
    rx::Disposable noting;
    atAccount("a", [&] {
        manager.setKova("b");
        noting.dispose();
        manager.setKova("c");
    });
    noting = noteAccounts("");
    manager.setKova("a");
    EXPECT_THAT(log, ElementsAre("a", "b"));
    EXPECT_EQ(*manager.kova() + *bed.stored(accountKey), "cc");
}

TEST(HandlerOfAnInstance, MayDestroyIt) {
    const Testbed bed;
    Log log;
    auto manager = std::make_unique<Instance>(bed.start());
    manager->kovaObserver().subscribe({.next = [&](const OptionalText&) { manager.reset(); }});
    manager->kovaObserver().subscribe({.next = [&](const OptionalText& value) { log.push_back(*value); },
                                       .completed = [&] { log.emplace_back("completed"); }});
    manager->setKova("a");
    EXPECT_THAT(log, ElementsAre("a", "completed"));
    EXPECT_EQ(bed.stored(accountKey), "a");
}

/// Assigns "NAME0" to "NAME39" in order.
template <class Assign>
std::thread assigning(const std::string& name, Assign assign) {
    return std::thread([=] {
        for (int i = 0; i < 40; ++i) assign(name + std::to_string(i));
    });
}

/// What one of the threads assigned, in the order in which it was seen.
Log of(const Log& seen, const std::string& name) {
    Log own;
    std::copy_if(seen.begin(), seen.end(), std::back_inserter(own),
                 [&](const auto& text) { return text[0] == name[0]; });
    return own;
}

Log fortyOf(const std::string& name) {
    Log all;
    for (int i = 0; i < 40; ++i) all.push_back(name + std::to_string(i));
    return all;
}

TEST_F(HandlerOfTheIdentity, SeesEachAssignmentOfTwoThreadsAndEndsWithTheValue) {
    noteAccounts("");
    const auto assign = [this](const std::string& value) { manager.setKova(value); };
    std::thread first = assigning("a", assign);
    std::thread second = assigning("b", assign);
    first.join();
    second.join();
    EXPECT_EQ(of(log, "a"), fortyOf("a"));
    EXPECT_EQ(of(log, "b"), fortyOf("b"));
    EXPECT_EQ(log.back(), manager.kova());
    EXPECT_EQ(bed.stored(accountKey), manager.kova());
}

TEST_F(HandlerOfTheIdentity, MayCrossTheCellsOfTwoThreads) {
    Log tokens;
    noteAccounts("");
    manager.profileJWTObserver().subscribe({.next = [&](const OptionalText& value) { tokens.push_back(*value); }});
    manager.kovaObserver().subscribe({.next = [this](const OptionalText& value) {
        if (value->starts_with("a")) manager.setProfileJWT(value);
    }});
    manager.profileJWTObserver().subscribe({.next = [this](const OptionalText& value) {
        if (value->starts_with("b")) manager.setKova(value);
    }});
    std::thread first = assigning("a", [this](const std::string& value) { manager.setKova(value); });
    std::thread second = assigning("b", [this](const std::string& value) { manager.setProfileJWT(value); });
    first.join();
    second.join();
    for (const Log& seen : {log, tokens}) EXPECT_EQ(of(seen, "a").size() + of(seen, "b").size(), 80U);
    EXPECT_EQ(log.back(), manager.kova());
    EXPECT_EQ(tokens.back(), manager.profileJWT());
    EXPECT_EQ(bed.stored(accountKey), manager.kova());
    EXPECT_EQ(bed.stored(tokenKey), manager.profileJWT());
}

}  // namespace
}  // namespace quorin
