#include "quorin/context/ConfigurationManagerUtils.hpp"
#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/Child.hpp"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <thread>
#include <vector>

// The shared manager is one for each process, so each of these runs in a process of its own.
namespace quorin {
namespace {

using support::inChild;

std::string words(const auto&... values) {
    std::ostringstream line;
    line << std::boolalpha;
    ((line << values << ' '), ...);
    return line.str();
}

void loadShared(const Testbed& bed, const char* text, std::optional<Brand> brand) {
    const std::string path = bed.folder().write("document.json", text);
    (void)rx::wait(ConfigurationManager::sharedInstance().initialize(PathURL{path}, {.deviceID = "D", .brand = brand}));
}

TEST(SharedInstance, HasNothingLoadedAtFirst) {
    const Testbed bed;
    EXPECT_EQ(inChild([&] {
                  platform::install(bed.start());
                  using Manager = ConfigurationManager;
                  return words(!Manager::brand(), !Manager::device(), !Manager::version(), !Manager::webServices(),
                               !Manager::groups(), !Manager::common(), !Manager::appVersion(), !Manager::analytics(),
                               !Manager::initialize(), !Manager::auth(), !Manager::player(), !Manager::layouts(),
                               !Manager::applicationData(), !Manager::features(),
                               !Manager::sharedInstance().configured());
              }),
              "true true true true true true true true true true true true true true true ");
}

TEST(SharedInstance, IsBuiltByTheFirstAccessor) {
    const Testbed bed;
    inChild([&] {
        platform::install(bed.start());
        return words(ConfigurationManager::common() == nullptr);
    });
    EXPECT_TRUE(bed.stored("com.vexodigitalMedia.parent.profileID"));
}

TEST(SharedInstance, YieldsEverySectionOfTheCurrentConfiguration) {
    const Testbed bed;
    EXPECT_EQ(inChild([&] {
                  platform::install(bed.start());
                  loadShared(bed, R"({"webservices": {}, "groups": [], "common": {}, "appversion": {}, "analytics": {},
                                      "init": {}, "auth": {}, "videoPlayer": {}, "layouts": {}, "application": {},
                                      "features": {}, "brand": "orvel"})",
                             std::nullopt);
                  using Manager = ConfigurationManager;
                  return words(!!Manager::webServices(), !!Manager::groups(), !!Manager::common(),
                               !!Manager::appVersion(), !!Manager::analytics(), !!Manager::initialize(),
                               !!Manager::auth(), !!Manager::player(), !!Manager::layouts(),
                               !!Manager::applicationData(), !!Manager::features(), !!Manager::brand(),
                               *Manager::device(), *Manager::version());
              }),
              "true true true true true true true true true true true false D 1.0.0 ");
}

TEST(SharedInstance, SharesASectionWithItsConfiguration) {
    const Testbed bed;
    EXPECT_EQ(inChild([&] {
                  platform::install(bed.start());
                  loadShared(bed, R"({"common": {"adChoices": "first"}})", Brand::orvel);
                  const auto first = ConfigurationManager::common();
                  loadShared(bed, R"({"common": {"adChoices": "second"}})", Brand::orvel);
                  return words(*first->adChoices, *ConfigurationManager::common()->adChoices,
                               ConfigurationManager::brand()->rawValue());
              }),
              "first second orvel ");
}

TEST(SharedInstance, IsOneForManyFirstAccesses) {
    const Testbed bed;
    EXPECT_EQ(inChild([&] {
                  platform::install(bed.start());
                  std::vector<std::string> parents(8);
                  std::vector<std::thread> threads;
                  for (std::string& parent : parents)
                      threads.emplace_back([&parent] { parent = ConfigurationManager::parentProfileID(); });
                  for (std::thread& thread : threads) thread.join();
                  return words(std::set<std::string>(parents.begin(), parents.end()).size());
              }),
              "1 ");
}

TEST(SharedInstance, HandsOutTheIdentity) {
    const Testbed bed;
    EXPECT_EQ(inChild([&] {
                  platform::install(bed.start());
                  auto& manager = ConfigurationManager::sharedInstance();
                  manager.setKova("k");
                  manager.setProfileJWT("t");
                  manager.setParentProfileID("p");
                  manager.setChildProfileID("c");
                  return words(*ConfigurationManager::kova(), *ConfigurationManager::profileJWT(),
                               ConfigurationManager::parentProfileID(), ConfigurationManager::childProfileID(),
                               ConfigurationManager::profileBind()->profileID,
                               ConfigurationManager::profileBind({.parent = true})->profileID);
              }),
              "k t p c c p ");
}

TEST(Platform, IsInstalledBeforeTheFirstUseOnly) {
    const Testbed bed;
    EXPECT_EQ(inChild([&] {
                  const bool first = platform::install(bed.start());
                  const bool again = platform::install(bed.start());
                  (void)platform::current();
                  const bool late = platform::install(bed.start());
                  return words(first, again, late, ConfigurationManagerUtils::appName());
              }),
              "true true false Sample ");
}

TEST(Platform, IsTheMachinesOwnWhereNoneIsInstalled) {
    const Testbed bed;
    EXPECT_EQ(inChild([&] {
                  setenv("XDG_DATA_HOME", bed.folder().path().c_str(), 1);
                  setenv("LC_ALL", "en_GB.UTF-8", 1);
                  const std::string agent = ConfigurationManager::sharedInstance().userAgent();
                  return words(agent.starts_with("/("), agent.find("; en_gb) ") != agent.npos,
                               ConfigurationManager::sharedInstance().platform().store->status().message.empty());
              }),
              "true true true ");
}

/// Parses when everything else of the process is gone.
struct ParsingAtExit {
    ~ParsingAtExit() { _exit(json::parse("[1, 2]") ? 7 : 1); }
};

TEST(Exit, LeavesAParserToItsHandlers) {
    EXPECT_EXIT(
        {
            static const ParsingAtExit last;
            (void)json::parse("{}");
            std::exit(0);
        },
        testing::ExitedWithCode(7), "");
}

TEST(Platform, CompletesWhatTheHostLeavesOut) {
    EXPECT_EQ(inChild([] {
                  Platform mine{.store = std::make_shared<MorrStandard>(morr::Options{}), .bundle = {.name = "Sample"}};
                  platform::install(mine);
                  return ConfigurationManagerUtils::generateUserAgent().substr(0, 8)
                                     + foundation::Device::current().model
                                 == ConfigurationManagerUtils::generateUserAgent().substr(
                                     0, 8 + foundation::Device::current().model.size())
                             ? "complete"
                             : "incomplete";
              }),
              "complete");
}

TEST(Restart, FindsWhatTheProcessBeforeAssigned) {
    const Testbed bed;
    const auto parent = inChild([&] {
        platform::install(bed.start());
        ConfigurationManager::sharedInstance().setKova("account");
        return ConfigurationManager::parentProfileID();
    });
    const auto next = inChild([&] {
        platform::install(bed.start());
        return words(ConfigurationManager::parentProfileID(), *ConfigurationManager::kova());
    });
    EXPECT_EQ(next, parent + " account ");
}

TEST(Restart, FindsEachValueOfAProcessThatWasKilled) {
    const Testbed bed;
    support::Child child([&](const support::Child::Say& say) {
        platform::install(bed.start());
        auto& manager = ConfigurationManager::sharedInstance();
        for (int i = 0;; ++i) {
            manager.setChildProfileID("c" + std::to_string(i));
            say(std::to_string(i));
        }
    });
    std::string last;
    for (int i = 0; i < 25; ++i) last = child.line();
    child.kill();
    child.finish();
    const std::string stored = bed.stored("com.vexodigitalMedia.child.profileID").value_or("lost");
    ASSERT_TRUE(stored.starts_with("c"));
    EXPECT_GE(std::stoi(stored.substr(1)), std::stoi(last));
}

}  // namespace
}  // namespace quorin
