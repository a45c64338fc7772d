#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/services/WebService.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/services/requests/RecordingParams.hpp"
#include "tests/support/Child.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

// The guard asks the shared manager, which is one for each process, so each of these runs in a process of its own.
namespace quorin {
namespace {

using Guard = std::optional<rx::Observable<int>>;

void loadInto(const ConfigurationManager::Instance& manager, const Testbed& bed) {
    const std::string path = bed.folder().write("document.json", "{}");
    if (!rx::wait(manager.initialize(PathURL{path}, {.deviceID = "D"}))) _exit(1);
}

void load(const Testbed& bed) { loadInto(ConfigurationManager::sharedInstance(), bed); }

/// What the guard says: "go on", or the record that its stream fails with, and each time what was asked of `params`.
std::string said(const Guard& guard, const RecordingParams& params) {
    std::string text = "go on";
    if (guard) {
        const auto end = rx::wait(*guard);
        const Oops* const oops = end ? nullptr : end.error().as<Oops>();
        text = oops ? oops->description() + (oops->message ? " with a message" : "") : "no record";
    }
    for (const std::string& question : params.questions()) text += ", asked " + question;
    return text;
}

std::string saidTo(const RecordingParams& params) { return said(WebService().configurationGuard<int>(params), params); }

/// The same in a process whose shared manager is a new one over the bed's store.
std::string inApp(const Testbed& bed, const std::function<std::string()>& work) {
    return support::inChild([&] {
        platform::install(bed.start());
        return work();
    });
}

constexpr const char* notInitialized = "configurationManager: configurationGuard: configNotInitialized";
constexpr const char* notValid = "configurationManager: configurationGuard: invalidParams";

TEST(ConfigurationGuard, RefusesEveryCallWithoutAConfigurationAndAsksNothing) {
    const Testbed bed;
    EXPECT_EQ(inApp(bed, [] { return saidTo(RecordingParams({.isValid = true})); }), notInitialized);
    EXPECT_EQ(inApp(bed, [] { return saidTo(RecordingParams({.isValid = false})); }), notInitialized);
}

TEST(ConfigurationGuard, RefusesParametersThatAreNotValid) {
    const Testbed bed;
    EXPECT_EQ(inApp(bed,
                    [&] {
                        load(bed);
                        return saidTo(RecordingParams({.isValid = false}));
                    }),
              std::string(notValid) + ", asked hasValidParams");
}

TEST(ConfigurationGuard, RefusesParametersThatDoNotSay) {
    const Testbed bed;
    EXPECT_EQ(inApp(bed,
                    [&] {
                        load(bed);
                        return said(WebService().configurationGuard<int>(APIParams()), RecordingParams());
                    }),
              notValid);
}

TEST(ConfigurationGuard, IsAbsentWhereTheCallMayBeMade) {
    const Testbed bed;
    EXPECT_EQ(inApp(bed,
                    [&] {
                        load(bed);
                        return saidTo(RecordingParams({.isValid = true}));
                    }),
              "go on, asked hasValidParams");
}

TEST(ConfigurationGuard, TakesAFailedLoadForNone) {
    const Testbed bed;
    EXPECT_EQ(inApp(bed,
                    [&] {
                        const std::string path = bed.folder().write("list.json", "[]");
                        (void)rx::wait(ConfigurationManager::sharedInstance().initialize(PathURL{path}, {}));
                        return saidTo(RecordingParams({.isValid = true}));
                    }),
              notInitialized);
}

TEST(ConfigurationGuard, AsksTheSharedManagerAlone) {
    const Testbed bed;
    EXPECT_EQ(inApp(bed,
                    [&] {
                        const ConfigurationManager::Instance other(phone(std::string(morr::memoryPath)));
                        loadInto(other, bed);
                        return saidTo(RecordingParams({.isValid = true}));
                    }),
              notInitialized);
}

TEST(ConfigurationGuard, HoldsForTheMomentOfTheCall) {
    const Testbed bed;
    EXPECT_EQ(inApp(bed,
                    [&] {
                        const RecordingParams params({.isValid = true});
                        const auto before = WebService().configurationGuard<int>(params);
                        load(bed);
                        return said(before, params);
                    }),
              notInitialized);
}

TEST(ConfigurationGuard, FailsEachSubscriptionAtOnceAndWithNothingElse) {
    const Testbed bed;
    EXPECT_EQ(inApp(bed,
                    [] {
                        std::string events;
                        const auto refused = WebService().configurationGuard<std::string>(APIParams());
                        for (int i = 0; i < 2; ++i) {
                            refused->subscribe({.next = [&](const std::string&) { events += "next "; },
                                                .error = [&](const rx::Error&) { events += "failed "; },
                                                .completed = [&] { events += "completed "; }});
                            events += "returned ";
                        }
                        return events;
                    }),
              "failed returned failed returned ");
}

}  // namespace
}  // namespace quorin
