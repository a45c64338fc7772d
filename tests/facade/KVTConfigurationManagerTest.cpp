#include "quorin/facade/KVTConfigurationManager.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/SkellError.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/Child.hpp"
#include "tests/support/FaultServer.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <latch>

namespace quorin {
namespace {

using support::answer;
using Instance = ConfigurationManager::Instance;

/// A manager of a test's own, with a server that has a document.
class Facade : public testing::Test {
protected:
    std::string url() const { return server_.url("/a.json"); }
    rx::Result<KVTConfiguration> load(const std::optional<SwiftObservable>& stream) const {
        const auto object = rx::wait(stream->stream());
        if (!object) return object.error();
        return *object->as<KVTConfiguration>();
    }

    const Testbed bed_{};
    const support::FaultServer server_{{{"/a.json", answer(200, R"({"pel": {"features": {"chat": {"on": 1}}},
                                                                     "common": {"adChoices": "x"}})")},
                                        {"/broken", answer(200, "[]")}}};
    Instance manager_{bed_.start()};
    const KVTConfigurationManager facade_{manager_};
};

TEST_F(Facade, HasNoConfigurationBeforeALoad) {
    EXPECT_FALSE(facade_.configuration());
    EXPECT_FALSE(facade_.configured());
}

TEST_F(Facade, LoadsForABrandAndAVersion) {
    const auto loaded = load(facade_.initialize(url(), "D", KVTBrand::pellow, "2.0"));
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->brand(), KVTBrand::pellow);
    EXPECT_EQ(loaded->device(), "D");
    EXPECT_EQ(loaded->version(), "2.0");
    EXPECT_TRUE(loaded->features()->contains("chat"));
    EXPECT_TRUE(facade_.configured());
    EXPECT_EQ(&facade_.configuration()->configuration(), &loaded->configuration());
}

TEST_F(Facade, LoadsForABrandInVersionOne) {
    const auto loaded = load(facade_.initialize(url(), "D", KVTBrand::pellow));
    EXPECT_EQ(loaded->version(), "1.0.0");
    EXPECT_EQ(loaded->brand(), KVTBrand::pellow);
}

TEST_F(Facade, LoadsAVersionWithoutABrand) {
    const auto loaded = load(facade_.initialize(url(), "D", "3.1"));
    EXPECT_EQ(loaded->version(), "3.1");
    EXPECT_EQ(loaded->brand(), KVTBrand::undefined);
    EXPECT_TRUE(loaded->configuration().common);
}

TEST_F(Facade, LoadsWithNeitherVersionNorBrand) {
    const auto loaded = load(facade_.initialize(url(), "D"));
    EXPECT_EQ(loaded->version(), "1.0.0");
    EXPECT_EQ(loaded->brand(), KVTBrand::undefined);
}

TEST_F(Facade, SendsNothingBeforeSomebodySubscribes) {
    EXPECT_TRUE(facade_.initialize(url(), "D"));
    EXPECT_TRUE(server_.requests().empty());
}

TEST_F(Facade, FailsWithTheErrorAsItIs) {
    const auto loaded = load(facade_.initialize(server_.url("/broken"), "D"));
    const auto native = rx::wait(manager_.initialize(server_.url("/broken"), LoadArguments{.deviceID = "D"}));
    ASSERT_FALSE(loaded);
    ASSERT_TRUE(loaded.error().as<SkellError>());
    EXPECT_EQ(*loaded.error().as<SkellError>(), *native.error().as<SkellError>());
    EXPECT_FALSE(facade_.configured());
}

TEST_F(Facade, TakesAPathForAURLThatIsNone) {
    const auto loaded = load(facade_.initialize(bed_.folder().write("a.json", "{}"), "D"));
    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.error().as<SkellError>()->kind, SkellError::Kind::invalidURL);
}

TEST_F(Facade, EndsTheProcessForAnUndefinedBrand) {
    EXPECT_EXIT((void)KVTConfigurationManager().initialize("http://127.0.0.1/", "D", KVTBrand::undefined),
                testing::KilledBySignal(SIGABRT), "");
}

TEST_F(Facade, CompletesAfterTheConfiguration) {
    std::string story;
    std::latch ended(1);
    facade_.initialize(url(), "D")
        ->subscribe([&](const Object& value) { story += value.as<KVTConfiguration>() ? "value " : "other "; },
                    [&](const rx::Error&) { story += "error "; },
                    [&] {
                        story += "completed";
                        ended.count_down();
                    });
    ended.wait();
    EXPECT_EQ(story, "value completed");
}

TEST_F(Facade, StoresTheAccountAndInstallsItsCookie) {
    bed_.put("com.vexodigitalMedia.domain", std::string("https://vexo.example/"));
    Instance manager(bed_.start());
    KVTConfigurationManager(manager).setKova("account");
    EXPECT_EQ(KVTConfigurationManager(manager).kova(), "account");
    EXPECT_EQ(bed_.stored("com.vexodigitalMedia.kova"), "account");
    const auto cookies = manager.platform().transport.cookies->cookies("https://vexo.example/");
    ASSERT_EQ(cookies.size(), 1U);
    EXPECT_EQ(cookies[0].value, "account");
    KVTConfigurationManager(manager).setKova(std::nullopt);
    EXPECT_FALSE(manager.kova());
}

TEST_F(Facade, HasNoBindWithoutATokenThoughThereAreProfiles) {
    EXPECT_FALSE(manager_.parentProfileID().empty());
    EXPECT_FALSE(facade_.profileBind());
}

TEST_F(Facade, BindsTheParentProfile) {
    manager_.setParentProfileID("parent");
    manager_.setChildProfileID("child");
    manager_.setProfileJWT("token");
    EXPECT_EQ(facade_.profileBind()->profileID(), "parent");
    EXPECT_EQ(facade_.profileBind()->profileJWT(), "token");
}

TEST_F(Facade, AssignsParentAndTokenAndNeverTheChild) {
    manager_.setChildProfileID("child");
    facade_.setProfileBind(KVTAnonymousBind("p", "t"));
    EXPECT_EQ(manager_.parentProfileID(), "p");
    EXPECT_EQ(manager_.profileJWT(), "t");
    EXPECT_EQ(manager_.childProfileID(), "child");
}

TEST_F(Facade, KeepsTheTokenWhereTheNewOneIsEmpty) {
    facade_.setProfileBind(KVTAnonymousBind("p", "old"));
    facade_.setProfileBind(KVTAnonymousBind("q", ""));
    EXPECT_EQ(manager_.parentProfileID(), "q");
    EXPECT_EQ(manager_.profileJWT(), "old");
}

TEST_F(Facade, KeepsEverythingWhereNoBindIsAssigned) {
    facade_.setProfileBind(KVTAnonymousBind("p", "t"));
    facade_.setProfileBind(std::nullopt);
    EXPECT_EQ(facade_.profileBind()->profileID(), "p");
    EXPECT_EQ(facade_.profileBind()->profileJWT(), "t");
}

TEST_F(Facade, MakesAUserAgentOfTheTextItIsGiven) {
    facade_.setUserAgent("A B CFNetwork/1 Darwin/2");
    EXPECT_EQ(facade_.userAgent(), manager_.userAgent());
    EXPECT_THAT(facade_.userAgent(), testing::StartsWith("Sample"));
    EXPECT_THAT(facade_.userAgent(), testing::EndsWith("CFNetwork/1 Darwin/2"));
}

TEST_F(Facade, YieldsTheSupportCardAsText) { EXPECT_EQ(facade_.supportCard(), manager_.supportCard().text()); }

TEST(KVTConfigurationManager, SpeaksForTheSharedManager) {
    const Testbed bed;
    EXPECT_EQ(support::inChild([&] {
                  platform::install(bed.start());
                  KVTConfigurationManager().setKova("account");
                  return ConfigurationManager::kova().value_or("none");
              }),
              "account");
}

TEST(KVTConfigurationManager, BuildsTheSharedManagerAtTheFirstUseAlone) {
    const Testbed bed;
    EXPECT_EQ(support::inChild([&] {
                  const KVTConfigurationManager facade;
                  const bool installed = platform::install(bed.start());
                  return std::string(installed && !facade.configured() ? "later" : "too early");
              }),
              "later");
}

}  // namespace
}  // namespace quorin
