// Reading a configuration takes no memory.
#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "tests/facade/c/InstalledHost.hpp"
#include "tests/faults/FailingMemory.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace quorin {
namespace {

using Manager = ConfigurationManager;

constexpr const char* document = R"({
  "webservices": {"login": {"url": {"value": "https://h.example/login/with/a/long/path"}, "method": "POST"}},
  "groups": [{"id": "a group with a long name", "title": "and a title that is long too"}],
  "common": {"privacyPolicy": "https://h.example/privacy/policy"},
  "appversion": {"latest": "2", "required": "1"},
  "analytics": {"suite": {"account": "an account with a long name"}},
  "init": {"storeLink": "https://store.example/app/with/a/long/name"},
  "auth": {"enabled": true},
  "videoPlayer": {"castRecieverId": "receiver"},
  "layouts": {"home": {"paginationSize": 20}},
  "application": {"author": "somebody"},
  "features": {"chat": {"enabled": true, "rules": [1, 2.5, "a text that is long enough", {"a": null}]}}
})";

constexpr std::pair<std::string_view, bool (*)()> accessors[] = {
    {"configuration", [] { return Manager::sharedInstance().configuration() != nullptr; }},
    {"configured", [] { return Manager::sharedInstance().configured(); }},
    {"brand", [] { return Manager::brand().has_value(); }},
    {"webServices", [] { return Manager::webServices() != nullptr; }},
    {"groups", [] { return Manager::groups() != nullptr; }},
    {"common", [] { return Manager::common() != nullptr; }},
    {"appVersion", [] { return Manager::appVersion() != nullptr; }},
    {"analytics", [] { return Manager::analytics() != nullptr; }},
    {"initialize", [] { return Manager::initialize() != nullptr; }},
    {"auth", [] { return Manager::auth() != nullptr; }},
    {"player", [] { return Manager::player() != nullptr; }},
    {"layouts", [] { return Manager::layouts() != nullptr; }},
    {"applicationData", [] { return Manager::applicationData() != nullptr; }},
    {"features", [] { return Manager::features() != nullptr; }},
};

/// The accessors of the shared manager that took memory, or whose answer was another one.
std::string surprisesWhere(bool present) {
    std::string names;
    for (const auto& [name, accessor] : accessors) {
        bool answer = !present;
        const auto taken = faults::takenBy([&answer, read = accessor] { answer = read(); });
        if (taken.allocations != 0) names += std::string(name) + " takes memory. ";
        if (answer != present) names += std::string(name) + " is another. ";
    }
    return names;
}

TEST_F(Host, ReadsSectionsThatAreNotThereWithoutMemory) {
    EXPECT_EQ(inHost([](const App&) {
                  Manager::sharedInstance();
                  return "surprises: " + surprisesWhere(false);
              }),
              "surprises: ");
}

TEST_F(Host, ReadsSectionsWithoutMemory) {
    const PathURL file{bed_.folder().write("document.json", document)};
    EXPECT_EQ(inHost([&file](const App&) {
                  const auto loaded = rx::wait(Manager::sharedInstance().initialize(file, {.brand = Brand::orvel}));
                  return loaded ? "surprises: " + surprisesWhere(true) : loaded.error().description();
              }),
              "surprises: ");
}

/// A configuration of a manager of its own.
class Reading : public testing::Test {
protected:
    long allocationsOf(const std::function<bool()>& read) const {
        bool reads = false;
        const faults::Taken taken = faults::takenBy([&] { reads = read(); });
        EXPECT_TRUE(reads);
        return taken.allocations;
    }

    std::shared_ptr<const Configuration> loaded() const {
        return *rx::wait(manager_.initialize(PathURL{bed_.folder().write("document.json", document)}, {}));
    }

    const Testbed bed_{};
    const Manager::Instance manager_{bed_.start()};
    const std::shared_ptr<const Configuration> configuration_ = loaded();
};

TEST_F(Reading, OfMembersTakesNoMemory) {
    EXPECT_EQ(allocationsOf([&] {
                  const auto service = configuration_->webServices->find("login");
                  return service->second.url.size() > 15 && configuration_->initialize->storeLink.has_value()
                         && configuration_->groups->front().title().size() > 15;
              }),
              0);
}

TEST_F(Reading, OfAWholeConfigurationForAnotherEqualOneTakesNoMemory) {
    const auto other = loaded();
    EXPECT_EQ(allocationsOf([&] { return *configuration_ == *other; }), 0);
}

TEST_F(Reading, OfJSONTakesNoMemory) {
    EXPECT_EQ(allocationsOf([&] {
                  const DocumentMap& params = *configuration_->features->find("chat")->second.params;
                  const auto rules = params.find("rules")->asList();
                  return params.contains("enabled") && !params.contains("a name that is not there at all")
                         && (*rules)[0].asInteger() == 1 && (*rules)[1].asReal() == 2.5
                         && (*rules)[2].asString() == "a text that is long enough";
              }),
              0);
}

TEST_F(Reading, OfEachMemberOfAnObjectTakesNoMemory) {
    EXPECT_EQ(allocationsOf([&] {
                  std::size_t bytes = 0;
                  const DocumentMap params = *configuration_->features->find("chat")->second.params;
                  for (const auto& [name, value] : params) bytes += name.size() + (value == value ? 1 : 0);
                  return bytes > params.size();
              }),
              0);
}

TEST_F(Reading, OfACopyOfAValueTakesNoMemory) {
    EXPECT_EQ(allocationsOf([&] {
                  const json::Value copy = configuration_->features->find("chat")->second.params->value();
                  return copy.asObject().has_value();
              }),
              0);
}

/// Without which the tests above would hold of anything.
TEST_F(Reading, OfAnArchiveTakesMemoryThatIsCounted) {
    EXPECT_GT(allocationsOf([&] { return !configuration_->encode().empty(); }), 0);
}

}  // namespace
}  // namespace quorin
