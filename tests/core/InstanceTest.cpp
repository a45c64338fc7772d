#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "tests/context/Testbed.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::Pair;
using Instance = ConfigurationManager::Instance;

TEST(Instance, IsNotConfiguredWhenTheIdentityIsRestored) {
    const Testbed bed;
    bed.put("com.vexodigitalMedia.kova", "account");
    const Instance manager(bed.start());
    EXPECT_EQ(manager.kova(), "account");
    EXPECT_FALSE(manager.configured());
    EXPECT_EQ(manager.configuration(), nullptr);
}

/// The manager of an app that starts while another process changes the account in the store: after the store was read,
/// which is when a store without a parent identifier gets one.
Instance startedWhileAnotherStores(const std::string& account, const Testbed& bed) {
    Platform platform = bed.start();
    platform.uuid = [&bed, account, original = platform.uuid] {
        bed.put("com.vexodigitalMedia.kova", account);
        return original();
    };
    return Instance(platform);
}

TEST(Instance, LeavesAnAccountThatAnotherProcessStoredWhileItStarted) {
    const Testbed bed;
    const Instance manager = startedWhileAnotherStores("theirs", bed);
    EXPECT_EQ(manager.kova(), std::nullopt);
    EXPECT_EQ(bed.stored("com.vexodigitalMedia.kova"), "theirs");
}

TEST(Instance, PutsNoOldAccountBackThatAnotherProcessChangedWhileItStarted) {
    const Testbed bed;
    bed.put("com.vexodigitalMedia.kova", "old");
    const Instance manager = startedWhileAnotherStores("theirs", bed);
    EXPECT_EQ(manager.kova(), "old");
    EXPECT_EQ(bed.stored("com.vexodigitalMedia.kova"), "theirs");
}

TEST(Instance, OutlivesItsTeardown) {
    const Testbed bed;
    const Instance manager(bed.start());
    manager.teardown();
    EXPECT_EQ(manager.childProfileID(), manager.parentProfileID());
}

TEST(DefaultHeaders, AreTwoWithoutConfigurationAndOptionalValues) {
    const Testbed bed;
    Instance manager(bed.start());
    manager.setUserZ("+0200");
    EXPECT_THAT(manager.defaultHeaders(),
                ElementsAre(Pair("User-Agent", manager.userAgent()), Pair("VEXO-USERTZ", "+0200")));
}

TEST(DefaultHeaders, AreFiveWithEverything) {
    const Testbed bed;
    Instance manager(bed.start());
    const std::string path = bed.folder().write("a.json", "{}");
    ASSERT_TRUE(rx::wait(manager.initialize(PathURL{path}, {.version = "3.1"})));
    manager.setUserZ("+0200");
    manager.setKova("account");
    manager.setVEXOMVPD("provider");
    EXPECT_THAT(manager.defaultHeaders(),
                ElementsAre(Pair("KOVA", "account"), Pair("User-Agent", manager.userAgent()),
                            Pair("VEXO-MVPD", "provider"), Pair("VEXO-USERTZ", "+0200"), Pair("appversion", "3.1")));
}

TEST(DefaultHeaders, FollowTheValues) {
    const Testbed bed;
    Instance manager(bed.start());
    manager.setKova("account");
    manager.setKova(std::nullopt);
    EXPECT_EQ(manager.defaultHeaders().count("KOVA"), 0U);
}

TEST(Instance, CompletesItsObserversWhenItEnds) {
    const Testbed bed;
    bool completed = false;
    {
        const Instance manager(bed.start());
        manager.kovaObserver().subscribe({.completed = [&] { completed = true; }});
    }
    EXPECT_TRUE(completed);
}

TEST(Instance, LetsItsObserversOutliveIt) {
    const Testbed bed;
    auto manager = std::make_unique<Instance>(bed.start());
    const auto observer = manager->childProfileIDObserver();
    manager.reset();
    EXPECT_TRUE(rx::wait(observer));
}

TEST(Instance, IsReadAndAssignedWhileConfigurationsAreLoaded) {
    const Testbed bed;
    Instance manager(bed.start());
    const std::string path = bed.folder().write("a.json", R"({"orvel": {"common": {"adChoices": "x"}}})");
    std::atomic<bool> done = false;
    std::thread loader([&] {
        for (int i = 0; i < 200; ++i) (void)rx::wait(manager.initialize(PathURL{path}, {.brand = Brand::orvel}));
        done = true;
    });
    std::thread reader([&] {
        while (!done) {
            const auto configuration = manager.configuration();
            EXPECT_TRUE(!configuration || configuration->common->adChoices == "x");
            EXPECT_GE(manager.defaultHeaders().size(), 2U);
        }
    });
    for (int i = 0; i < 20; ++i) manager.setVEXOMVPD("provider" + std::to_string(i));
    loader.join();
    reader.join();
    EXPECT_EQ(bed.stored("com.vexodigitalMedia.mvpd"), "provider19");
}

TEST(Instance, FillsTheTimeZoneOnceForTwoFirstReads) {
    const Testbed bed;
    const Instance manager(bed.start());
    std::string seen[2];
    std::thread first([&] { seen[0] = manager.userZ(); });
    std::thread second([&] { seen[1] = manager.userZ(); });
    first.join();
    second.join();
    EXPECT_EQ(seen[0], seen[1]);
}

TEST(Instance, WorksInMemoryWithAStoreThatCannotBeOpened) {
    const Testbed bed;
    Platform platform = bed.start();
    platform.store = std::make_shared<MorrStandard>(morr::Options{.path = bed.folder().path()});
    Instance manager(platform);
    manager.setKova("account");
    EXPECT_EQ(manager.kova(), "account");
    EXPECT_EQ(manager.platform().store->status().kind, morr::Status::Kind::unavailable);
    EXPECT_NE(manager.platform().store->status().message, "");
}

}  // namespace
}  // namespace quorin
