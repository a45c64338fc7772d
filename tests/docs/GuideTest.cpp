// The samples of docs/guide.md. The document quotes lines of this file; a test fails when it quotes what is not here.
#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/facade/KVTConfigurationManager.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/rx/ObserveOn.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/services/requests/Models.hpp"
#include "quorin/services/requests/Skell.hpp"

#include "tests/docs/MainLoop.hpp"
#include "tests/support/FaultServer.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <latch>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quorin {
namespace {

using support::answer;
using support::FaultServer;
using support::TemporaryFolder;
using testing::ElementsAre;

/// For one test: nothing of the machine, and nothing that stays.
Platform testPlatform() {
    Platform platform = Platform::standard({.name = "Sample", .shortVersion = "2.4"});
    platform.store = std::make_shared<MorrStandard>(morr::Options{});  // in memory
    platform.transport.cookies = std::make_shared<foundation::HTTPCookieStorage>();
    platform.device = {.model = "TV", .systemName = "Linux", .systemVersion = "6.1"};
    platform.locale = [] { return std::string("en_US"); };
    platform.uuid = [] { return std::string("6F9619FF-8B86-4011-B42D-00C04FC964FF"); };
    return platform;
}

void load(const ConfigurationManager::Instance& manager, const std::string& document) {
    const TemporaryFolder folder;
    EXPECT_TRUE(rx::wait(manager.initialize(PathURL{folder.write("a.json", document)}, LoadArguments{})));
}

TEST(Guide, TestsAnAppWithAnInstanceOfItsOwn) {
    ConfigurationManager::Instance manager(testPlatform());
    EXPECT_EQ(manager.parentProfileID(), "p6F9619FF-8B86-4011-B42D-00C04FC964FF");
    EXPECT_FALSE(manager.configured());
    EXPECT_EQ(manager.defaultHeaders()["User-Agent"].rfind("Sample/2.4(TV; ", 0), 0U);
}

TEST(Guide, ServesADocumentFromThisMachine) {
    const FaultServer server({{"/config.json", answer(200, R"({"orvel": {"groups": [{"id": "g", "title": "G"}]}})")}});
    ConfigurationManager::Instance manager(testPlatform());
    const auto loaded = rx::wait(manager.initialize(server.url("/config.json"), {.brand = Brand::orvel}));
    ASSERT_TRUE(loaded) << loaded.error().description();
    EXPECT_EQ((*loaded)->groups->at(0).title(), "G");
    EXPECT_EQ(server.requests().at(0).header("Accept-Encoding"), "gzip, br");
}

std::string noticeOf(const ConfigurationManager::Instance& manager) {
    const auto configuration = manager.configuration();  // what belongs together comes from one of them
    if (!configuration) return "not loaded yet";
    const auto& settings = configuration->initialize;
    if (!settings || !settings->isMaintenanceState.value_or(false)) return "open";
    return settings->maintenanceMainMessage.value_or("We will be back soon.");
}

TEST(Guide, TakesAbsenceForAnAnswer) {
    const ConfigurationManager::Instance manager(testPlatform());
    EXPECT_EQ(noticeOf(manager), "not loaded yet");
    load(manager, "{}");
    EXPECT_EQ(noticeOf(manager), "open");
    load(manager, R"({"init": {"isMaintenanceState": true}})");
    EXPECT_EQ(noticeOf(manager), "We will be back soon.");
}

TEST(Guide, FollowsAValueUntilItIsDisposed) {
    ConfigurationManager::Instance manager(testPlatform());
    std::vector<std::string> seen;

    const rx::Disposable following = manager.childProfileIDObserver().subscribe(
        {.next = [&seen](const std::string& profile) { seen.push_back(profile); }});
    manager.setChildProfileID("p-kids");  // stored, and seen, when this returns
    following.dispose();
    manager.setChildProfileID("p-adults");  // stored; nobody is told

    EXPECT_THAT(seen, ElementsAre("p-kids"));
    EXPECT_EQ(manager.childProfileID(), "p-adults");
}

TEST(Guide, DeliversALoadOnTheMainLoop) {
    const FaultServer server({{"/config.json", answer(200, "{}")}});
    const std::string url = server.url("/config.json");
    const ConfigurationManager::Instance manager(testPlatform());
    MainLoop mainLoop;
    std::string shown;

    const auto onMainLoop = [&mainLoop](std::function<void()> task) { mainLoop.post(std::move(task)); };
    rx::observeOn(manager.initialize(url, {.deviceID = "living-room", .brand = Brand::orvel}), onMainLoop)
        .subscribe({.next = [&shown](const auto& configuration) { shown = configuration->device.value_or(""); },
                    .error = [&shown](const rx::Error& error) { shown = error.description(); }});

    EXPECT_EQ(shown, "");
    mainLoop.runOneTask();  // the configuration
    mainLoop.runOneTask();  // the end
    EXPECT_EQ(shown, "living-room");
}

std::string adviceFor(const rx::Error& error) {
    if (const auto* const failure = error.as<SkellError>()) {
        return failure->kind == SkellError::Kind::status ? "The server is in trouble." : "Check the connection.";
    }
    if (const auto* const oops = error.as<Oops>()) {
        const bool broken = oops->errorCode == InstrumentationCodes::ErrorCode::jsonParsing;
        return broken ? "The document is broken." : "There is no such document.";
    }
    return error.description();
}

TEST(Guide, TellsErrorsApart) {
    const TemporaryFolder folder;
    const ConfigurationManager::Instance manager(testPlatform());
    const auto adviceAfter = [&](const auto& source) {
        return adviceFor(rx::wait(manager.initialize(source, LoadArguments{})).error());
    };
    EXPECT_EQ(adviceAfter(PathURL{folder.file("none.json")}), "There is no such document.");
    EXPECT_EQ(adviceAfter(PathURL{folder.write("a.json", "{")}), "The document is broken.");
    const FaultServer server({{"/a.json", answer(503)}});
    EXPECT_EQ(adviceAfter(server.url("/a.json")), "The server is in trouble.");
    EXPECT_EQ(adviceAfter(std::string("http://127.0.0.1:1/a.json")), "Check the connection.");
}

struct Hit {
    std::string title{};

    static std::optional<Hit> fromJSON(const DocumentMap& json) {
        const auto title = json.find("title");
        const auto text = title ? title->asString() : std::nullopt;
        return text ? std::optional(Hit{std::string(*text)}) : std::nullopt;
    }
};

struct SearchParams : APIParams {
    std::string text{};

    std::optional<StringMap> URLMapping() const override { return StringMap{{"{kind}", "series"}}; }
    std::optional<StringMap> queryParameters() const override { return StringMap{{"q", text}}; }
    bool hasValidParams() const override { return !text.empty(); }
};

TEST(Guide, CallsAServiceAndReadsItsModels) {
    const FaultServer server({{"/series?q=a%20b", answer(200, R"([{"title": "A B"}, {"no": "title"}])")}});
    const ConfigurationManager::Instance manager(testPlatform());
    const WebService service{.name = "search", .url = server.url("/{kind}")};

    SearchParams params;
    params.text = "a b";
    const Skell request = Skell::build(params, service, manager);
    const rx::Result<std::vector<Hit>> hits = rx::wait(models<Hit>(request.response()));

    ASSERT_TRUE(hits) << hits.error().description();
    ASSERT_EQ(hits->size(), 1U);
    EXPECT_EQ(hits->at(0).title, "A B");
    EXPECT_EQ(server.requests().at(0).header("User-Agent"), manager.userAgent());
}

TEST(Guide, KeepsTheAccountsCookieUpToDate) {
    const FaultServer server({{"/sign-in", answer(200, "", "Set-Cookie: KOVA=abc; Path=/\r\n")}, {"/", answer(200)}});
    ConfigurationManager::Instance manager(testPlatform());
    Skell request = Skell::POST(server.url("/sign-in"));
    request.transport = manager.platform().transport;

    const auto signedIn = rx::wait(request.response());
    if (signedIn) manager.sync(ConfigurationManager::Instance::kovaCookie(*signedIn));
    manager.setKova("account-7");  // from now on "Cookie: KOVA=account-7" goes to that host

    Skell next = Skell::GET(server.url("/"));
    next.transport = manager.platform().transport;
    EXPECT_TRUE(rx::wait(next.response()));
    EXPECT_EQ(server.requests().at(1).header("Cookie"), "KOVA=account-7");
}

TEST(Guide, SaysWhereValuesAreKeptAndHowTheStoreFares) {
    const TemporaryFolder folder;
    const std::string path = folder.write("store.db", "this is no database, and long enough to be taken for a file");
    std::string noted;

    Platform platform = testPlatform();
    platform.store = std::make_shared<MorrStandard>(morr::Options{.path = path, .setAsideDamaged = false});
    const ConfigurationManager::Instance manager(platform);
    const morr::Status status = manager.platform().store->status();
    if (status.kind != morr::Status::Kind::open) noted = status.message;  // for the app's own log

    EXPECT_NE(noted.find(path), std::string::npos) << noted;
    EXPECT_FALSE(manager.parentProfileID().empty());
}

TEST(Guide, LearnsWhatADocumentHeldThatWasNotTaken) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.json", "{\"auth\": {\n  \"initTimeout\": \"soon\"\n}}");
    const ConfigurationManager::Instance manager(testPlatform());
    std::string lines;

    const auto loaded = rx::wait(manager.initialize(PathURL{path}, {.findings = true}));
    for (const Finding& finding : manager.loadReport()->findings->findings) {
        lines += finding.pointer + ": " + std::string(finding.found) + " in place of " + std::string(finding.expected);
        if (finding.position) lines += ", line " + std::to_string(finding.position->line);
    }

    EXPECT_TRUE(loaded);
    EXPECT_EQ(lines, "/auth/initTimeout: string in place of integer, line 2");
}

TEST(Guide, MakesACardForSupport) {
    const TemporaryFolder folder;
    const ConfigurationManager::Instance manager(testPlatform());
    EXPECT_FALSE(rx::wait(manager.initialize(PathURL{folder.write("a.json", "{")}, {})));

    const std::string card = manager.supportCard().text();

    EXPECT_NE(card.find("a.json"), std::string::npos) << card;
}

TEST(Guide, LoadsForAHostThatKnowsObjects) {
    const FaultServer server({{"/config.json", answer(200, "{}")}});
    ConfigurationManager::Instance manager(testPlatform());
    const std::string url = server.url("/config.json");
    std::string shown;
    std::latch ended(1);
    const KVTConfigurationManager facade(manager);
    facade.initialize(url, "living-room", KVTBrand::pellow)
        ->subscribe([&shown](const Object& loaded) { shown = *loaded.as<KVTConfiguration>()->device(); },
                    [&shown](const rx::Error& error) { shown = error.description(); },
                    [&ended] { ended.count_down(); });
    ended.wait();
    EXPECT_EQ(shown, "living-room");
}

}  // namespace
}  // namespace quorin
