// A manager is made, and its identity changed, as a whole or not at all; the store and its subscribers know it.
#include "quorin/context/PersistenceKeys.hpp"
#include "quorin/core/ConfigurationManager.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/faults/EachAllocation.hpp"
#include "tests/faults/FaultyVFS.hpp"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace quorin {
namespace {

using faults::Failed;
using Manager = ConfigurationManager::Instance;

const std::string account = "an account identifier that takes memory";

/// A platform whose identifiers are known.
Platform knownPhone(const std::string& store) {
    Platform platform = phone(store);
    platform.uuid = [] { return std::string("6B29FC40-CA47-1067-B31D-00DD010662DA"); };
    return platform;
}

constexpr const char* parent = "p6B29FC40-CA47-1067-B31D-00DD010662DA";

TEST(InstanceWithoutMemory, IsMadeWholeOrNotAtAll) {
    EXPECT_GT(faults::failEachAndKeepNothing([] {
                  const Manager manager(knownPhone(std::string(morr::memoryPath)));
                  EXPECT_EQ(manager.parentProfileID(), parent);
              }),
              50);
}

TEST(InstanceWithoutMemory, IsMadeWholeOrNotAtAllOverAFile) {
    const faults::FaultyVFS quick;
    const Testbed bed;
    bed.put(PersistenceKeys::kova, account);
    bed.put(PersistenceKeys::domain, "https://h.example/a/domain/that/is/long");
    const auto start = [&] {
        const Manager manager(knownPhone(bed.storePath()));
        EXPECT_EQ(manager.kova(), account);
        EXPECT_EQ(manager.childProfileID(), parent);
    };
    EXPECT_GT(faults::failEach(start,
                               [&](const Failed&) {
                                   EXPECT_EQ(bed.stored(PersistenceKeys::kova), account);
                                   const auto there = bed.stored(PersistenceKeys::parentProfileID);
                                   EXPECT_TRUE(!there || there == parent) << *there;
                               }),
              100);
    EXPECT_EQ(bed.stored(PersistenceKeys::childProfileID), parent);
}

/// At the first start, in a new file each time.
TEST(InstanceWithoutMemory, MakesAStoreThatTheNextStartCanUse) {
    const faults::FaultyVFS quick;
    long count = 0;
    for (Failed failed;; ++count) {
        const Testbed bed;
        const auto start = [&] { const Manager manager(knownPhone(bed.storePath())); };
        if (!faults::fails(count, faults::Then::succeeds, start, failed)) break;
        EXPECT_EQ(Manager(knownPhone(bed.storePath())).parentProfileID(), parent) << count;
        EXPECT_EQ(bed.stored(PersistenceKeys::childProfileID), parent) << count;
    }
    EXPECT_GT(count, 100);
}

/// A manager over a file, with an account and three who follow it without memory of their own.
class AccountWithoutMemory : public testing::Test {
protected:
    AccountWithoutMemory() {
        bed_.put(PersistenceKeys::kova, old_);
        bed_.put(PersistenceKeys::domain, "https://h.example/");
        manager_.emplace(knownPhone(bed_.storePath()));
        seen_.fill(old_.size());
        for (std::size_t& seen : seen_)
            manager_->kovaObserver().subscribe(
                {.next = [&seen](const std::optional<std::string>& kova) { seen = kova ? kova->size() : 0; }});
    }

    /// Assigns a value of another size each time.
    void assign() { manager_->setKova(account + std::string(++assigned_, 'x')); }

    void look(const Failed& failed) const {
        const auto size = manager_->kova()->size();
        for (const std::size_t seen : seen_) EXPECT_EQ(seen, size);
        EXPECT_TRUE(failed.isThrown || size == account.size() + assigned_);
    }

    /// The store and the cookie, with those that follow.
    void expectEverywhere(const std::string& kova) const {
        EXPECT_EQ(manager_->kova(), kova);
        EXPECT_EQ(bed_.stored(PersistenceKeys::kova), kova);
        EXPECT_EQ(manager_->platform().transport.cookies->cookieHeader("https://h.example/"), "KOVA=" + kova);
        for (const std::size_t seen : seen_) EXPECT_EQ(seen, kova.size());
    }

    const faults::FaultyVFS quick_{};
    const Testbed bed_{};
    const std::string old_ = "the account before this one";
    std::optional<Manager> manager_{};
    std::array<std::size_t, 3> seen_{};
    std::size_t assigned_ = 0;
};

TEST_F(AccountWithoutMemory, IsTheSameToAllThatFollowIt) {
    EXPECT_GT(faults::failEach([this] { assign(); }, [this](const Failed& failed) { look(failed); }), 20);
    expectEverywhere(account + std::string(assigned_, 'x'));
}

TEST_F(AccountWithoutMemory, IsKeptWhenItIsAssignedAgain) {
    long count = 0;
    for (;; ++count) {
        const std::string kova = account + std::to_string(count);
        Failed failed;
        const auto assigning = [&] { manager_->setKova(kova); };
        if (!faults::fails(count, faults::Then::fails, assigning, failed)) break;
        manager_->setKova(kova);
        expectEverywhere(kova);
        EXPECT_EQ(manager_->platform().store->status().kind, morr::Status::Kind::open) << count;
    }
    EXPECT_GT(count, 20);
}

TEST_F(AccountWithoutMemory, IsRemovedEverywhereOrStays) {
    EXPECT_GT(faults::failEach([this] { manager_->setKova(std::nullopt); },
                               [this](const Failed& failed) {
                                   EXPECT_TRUE(failed.isThrown || !manager_->kova());
                                   manager_->setKova(old_);
                                   expectEverywhere(old_);
                               }),
              5);
    EXPECT_EQ(bed_.stored(PersistenceKeys::kova), std::nullopt);
}

TEST_F(AccountWithoutMemory, GivesProfilesBindsAndHeadersWholeOrNotAtAll) {
    manager_->setProfileJWT("a token that is long enough to take memory");
    manager_->setUserZ("+0100");
    const auto headers = manager_->defaultHeaders();
    EXPECT_GT(faults::failEachAndKeepNothing([&] {
                  EXPECT_EQ(manager_->defaultHeaders(), headers);
                  EXPECT_EQ(manager_->profileBind({.parent = true})->profileID, parent);
                  EXPECT_EQ(manager_->createCookie(old_)->value, old_);
              }),
              10);
}

}  // namespace
}  // namespace quorin
