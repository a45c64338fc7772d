// What a load leaves beside the configuration.
#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/SkellError.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/FaultServer.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorin {
namespace {

using support::answer;
using testing::HasSubstr;
using testing::Not;
using Instance = ConfigurationManager::Instance;

constexpr const char* document = R"({
  "webservices": {"login": {"url": {"value": "https://root/login"}, "method": "POST"}},
  "orvel": {"groups": [{"id": "a", "title": "A"}, {"id": "b", "title": "B"}], "auth": {"sso": "yes"}}
})";

Platform atNoon(Platform platform) {
    platform.clock = [] { return std::chrono::system_clock::time_point(std::chrono::seconds(1'700'000'000)); };
    return platform;
}

class LoadReporting : public testing::Test {
protected:
    std::shared_ptr<const LoadReport> load(const std::string& text, const LoadArguments& arguments = {}) {
        static_cast<void>(
            rx::wait(manager_.initialize(PathURL{path_ = bed_.folder().write("document.json", text)}, arguments)));
        return manager_.loadReport();
    }

    std::string fingerprintOf(const std::string& text) { return load(text)->fingerprint(); }

    const Testbed bed_{};
    Instance manager_{atNoon(bed_.start())};
    std::string path_{};
};

TEST_F(LoadReporting, HasNothingToTellBeforeTheFirstLoad) {
    EXPECT_EQ(manager_.loadReport(), nullptr);
    EXPECT_EQ(manager_.failedLoad(), nullptr);
}

TEST_F(LoadReporting, TellsWhatWasLoadedFromWhereAndWhen) {
    const auto report = load(document, {.brand = Brand::orvel});
    EXPECT_EQ(report->source, path_);
    EXPECT_EQ(report->brand, Brand::orvel);
    EXPECT_EQ(report->section, "orvel");
    EXPECT_EQ(report->time, std::chrono::system_clock::time_point(std::chrono::seconds(1'700'000'000)));
    EXPECT_EQ(report->size, std::string_view(document).size());
    EXPECT_FALSE(report->failure);
}

TEST_F(LoadReporting, NamesNoSectionWhereTheWholeDocumentWasRead) {
    EXPECT_EQ(load(document, {.brand = Brand::pellow})->section, "");
    EXPECT_EQ(load(document)->section, "");
}

TEST_F(LoadReporting, CountsWhatWasRead) {
    const ReadCounts counts{.sections = 3, .webServices = 1, .groups = 2};
    EXPECT_EQ(load(document, {.brand = Brand::orvel})->counts, counts);
}

TEST_F(LoadReporting, HoldsTheConfigurationThatItTellsOf) {
    const auto report = load(document);
    EXPECT_EQ(report->configuration, manager_.configuration());
}

TEST_F(LoadReporting, HasFindingsOnlyWhereTheyWereAskedFor) {
    EXPECT_FALSE(load(document)->findings);
    const auto report = load(document, {.brand = Brand::orvel, .findings = true});
    const Finding sso{"/orvel/auth/sso", "boolean", "string", Cost::fieldAbsent, json::Position{3, 95}};
    EXPECT_THAT(report->findings->findings, testing::ElementsAre(sso));
}

TEST_F(LoadReporting, FingerprintsTheContentAndNotItsLayout) {
    const std::string one = fingerprintOf(R"({"common": {"adChoices": "x"}, "groups": []})");
    EXPECT_EQ(one, fingerprintOf(" {\n\"groups\": [ ],\n\"common\": {\"adChoices\": \"\\u0078\"}}"));
    EXPECT_NE(one, fingerprintOf(R"({"common": {"adChoices": "y"}, "groups": []})"));
}

TEST_F(LoadReporting, FingerprintsTheCanonicalTextBySHA256) {
    EXPECT_EQ(fingerprintOf(" { } "), "44136fa355b3678a1146ad16f7e8649e94fb4fc21fe77e8310c060f61caaff8a");
}

TEST_F(LoadReporting, KeepsTheReportOfASuccessWhenALoadFails) {
    const auto before = load(document);
    load("{");
    EXPECT_EQ(manager_.loadReport(), before);
    EXPECT_EQ(manager_.configuration(), before->configuration);
}

TEST_F(LoadReporting, SaysWhereTheTextOfAFailedLoadIsBroken) {
    load("{\n \"a\": }");
    const auto failed = manager_.failedLoad();
    EXPECT_EQ(failed->source, path_);
    EXPECT_EQ(failed->failure->position, (json::Position{2, 7}));
    EXPECT_EQ(failed->failure->error.as<Oops>()->errorCode, InstrumentationCodes::ErrorCode::jsonParsing);
    EXPECT_EQ(failed->configuration, nullptr);
    EXPECT_EQ(failed->fingerprint(), "");
}

TEST_F(LoadReporting, SaysWhatIsThereInPlaceOfAnObject) {
    load("[1]");
    EXPECT_THAT(manager_.failedLoad()->failure->message, HasSubstr("list"));
}

TEST_F(LoadReporting, SaysWhyAFileCannotBeRead) {
    static_cast<void>(rx::wait(manager_.initialize(PathURL{bed_.folder().file("missing")}, {})));
    EXPECT_THAT(manager_.failedLoad()->failure->message, HasSubstr("No such file"));
}

TEST_F(LoadReporting, KeepsTheLastFailureThroughASuccess) {
    load("{");
    const auto failed = manager_.failedLoad();
    load(document);
    EXPECT_EQ(manager_.failedLoad(), failed);
}

class URLLoadReporting : public LoadReporting {
protected:
    void loadFrom(const std::string& target) {
        static_cast<void>(rx::wait(manager_.initialize(server_.url(target), {.findings = true})));
    }

    support::FaultServer server_{{{"/config.json?token=s3cret", answer(200, document)},
                                  {"/broken?token=s3cret", answer(200, "{\n \"a\": }")},
                                  {"/missing?token=s3cret", answer(404, "{}")},
                                  {"/cut", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{"}}};
};

TEST_F(URLLoadReporting, TellsTheSourceWithoutItsQuery) {
    loadFrom("/config.json?token=s3cret");
    EXPECT_EQ(manager_.loadReport()->source, server_.url("/config.json"));
    EXPECT_EQ(manager_.loadReport()->size, std::string_view(document).size());
    EXPECT_TRUE(manager_.loadReport()->findings);
}

TEST_F(URLLoadReporting, SaysWhereABodyIsBroken) {
    loadFrom("/broken?token=s3cret");
    const auto failed = manager_.failedLoad();
    EXPECT_EQ(failed->failure->position, (json::Position{2, 7}));
    EXPECT_EQ(failed->size, 9U);
    EXPECT_THAT(failed->source + failed->failure->message, Not(HasSubstr("s3cret")));
}

TEST_F(URLLoadReporting, TellsOfAStatus) {
    loadFrom("/missing?token=s3cret");
    EXPECT_EQ(manager_.failedLoad()->failure->error.as<SkellError>()->status, 404);
}

TEST_F(URLLoadReporting, TellsOfARequestWithoutAResponse) {
    loadFrom("/cut");
    EXPECT_EQ(manager_.failedLoad()->failure->error.as<SkellError>()->kind, SkellError::Kind::network);
    static_cast<void>(rx::wait(manager_.initialize("no url", {})));
    EXPECT_EQ(manager_.failedLoad()->failure->error.as<SkellError>()->kind, SkellError::Kind::invalidURL);
}

}  // namespace
}  // namespace quorin
