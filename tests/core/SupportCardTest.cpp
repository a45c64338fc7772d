#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/json/Print.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "tests/context/Testbed.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quorin {
namespace {

using testing::HasSubstr;
using testing::Not;
using Instance = ConfigurationManager::Instance;

class SupportCards : public testing::Test {
protected:
    SupportCards() {
        Platform platform = bed_.start();
        platform.clock = [] { return std::chrono::system_clock::time_point(std::chrono::seconds(1'700'000'000)); };
        manager_.emplace(platform);
    }

    void load(const std::string& text, const LoadArguments& arguments = {}, const char* name = "document.json") {
        static_cast<void>(rx::wait(manager_->initialize(PathURL{bed_.folder().write(name, text)}, arguments)));
    }

    std::string text() const { return manager_->supportCard().text(); }
    json::Value member(std::string_view name) const { return *manager_->supportCard().json().find(name); }

    const Testbed bed_{};
    std::optional<Instance> manager_{};
};

TEST_F(SupportCards, AreTenLines) {
    EXPECT_EQ(std::ranges::count(text(), '\n'), 10);
    load("{");
    load(R"({"orvel": {"auth": {"sso": "yes"}}})", {.brand = Brand::orvel, .findings = true});
    EXPECT_EQ(std::ranges::count(text(), '\n'), 10);
}

TEST_F(SupportCards, SayWhoAsksBeforeAnythingIsLoaded) {
    EXPECT_THAT(text(), HasSubstr("app: Sample 2.4\ndevice: iPhone9,1, iOS 10.3.1, en_US\n"));
    EXPECT_THAT(text(), HasSubstr("source: none\nbrand: none\n"));
    EXPECT_EQ(member("load"), json::Value());
}

TEST_F(SupportCards, SayWhatIsLoaded) {
    load(R"({"orvel": {"auth": {"sso": "yes"}, "common": {"adChoices": null}}})",
         {.brand = Brand::orvel, .findings = true});
    EXPECT_THAT(text(), HasSubstr("brand: orvel, section \"orvel\"\nloaded: 2023-11-14T22:13:20Z, 66 bytes, SHA-256 "));
    EXPECT_THAT(text(), HasSubstr("read: 2 sections, 0 webServices"));
    EXPECT_THAT(text(), HasSubstr("findings: 1 errors, 1 warnings\nlast failure: none\n"));
}

TEST_F(SupportCards, SayWhatFailedLast) {
    load("{\n \"a\": }");
    EXPECT_THAT(text(),
                testing::ContainsRegex("last failure: 2023-11-14T22:13:20Z, .*document.json: .* .line 2, column 7.\n"));
    EXPECT_EQ(member("lastFailure").asObject()->find("line"), json::Value(2));
}

TEST_F(SupportCards, SayTheSameAsJSON) {
    load(R"({"groups": [{"id": "a", "title": "A"}]})");
    const DocumentMap loaded = *member("load").asObject();
    EXPECT_EQ(loaded.find("time"), json::Value("2023-11-14T22:13:20Z"));
    EXPECT_EQ(loaded.find("fingerprint"), json::Value(manager_->loadReport()->fingerprint()));
    EXPECT_EQ(loaded.find("read")->asObject()->find("groups"), json::Value(1));
    EXPECT_EQ(loaded.find("findings"), json::Value());
    EXPECT_EQ(loaded.find("brand"), json::Value());
}

TEST_F(SupportCards, HoldNoSecret) {
    manager_->setKova("the account");
    manager_->setProfileJWT("the token");
    manager_->setVEXOMVPD("the provider");
    const std::string whole = text() + json::print(manager_->supportCard().json());
    for (const std::string& secret : {std::string("the "), manager_->parentProfileID(), bed_.storePath()})
        EXPECT_THAT(whole, Not(HasSubstr(secret)));
}

TEST_F(SupportCards, HoldNoControlCharacters) {
    load("{}", {}, "a\nb\x1b[2J.json");
    EXPECT_THAT(text(), HasSubstr("a b [2J.json\n"));
    EXPECT_EQ(std::ranges::count(text(), '\n'), 10);
}

TEST_F(SupportCards, HoldNothingThatATerminalObeys) {
    load("{}", {}, "a\xC2\x9B[2J\x9B\xFF.json");
    EXPECT_THAT(text(), HasSubstr("a [2J\xEF\xBF\xBD\xEF\xBF\xBD.json\n"));
}

TEST_F(SupportCards, CountWhatTheReportOmits) {
    std::string members;
    for (int i = 0; i < 10'005; ++i) members += (i > 0 ? ",\"" : "\"") + std::to_string(i) + "\":1";
    load("{" + members + "}", {.findings = true});
    EXPECT_THAT(text(), HasSubstr("findings: 0 errors, 0 warnings, 5 more findings omitted\n"));
}

}  // namespace
}  // namespace quorin
