#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/Environment.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::Pair;
using Instance = ConfigurationManager::Instance;

constexpr const char* twoBrands = R"({
  "webservices": {"login": {"url": {"value": "https://root/login"}, "method": "POST"}},
  "orvel": {"common": {"privacyPolicy": "of orvel"},
            "webservices": {"own": {"url": {"value": "https://own"}, "method": "GET"}}},
  "pel": {"common": {"privacyPolicy": "of pellow"}, "brand": "orvel", "version": "9", "device": "X"},
  "qnt": "no object", "tvs": [],
  "common": {"privacyPolicy": "of the root"}
})";

/// A manager with a file to load from.
class Loading : public testing::Test {
protected:
    rx::Result<Instance::ConfigurationPointer> load(const std::string& document, const LoadArguments& arguments = {}) {
        const std::string path = bed_.folder().write("document.json", document);
        return rx::wait(manager_.initialize(PathURL{path}, arguments));
    }

    const std::vector<Finding>& findings() const { return manager_.loadReport()->findings->findings; }

    std::string privacyPolicy(std::optional<Brand> brand) {
        const auto loaded = load(twoBrands, {.deviceID = "D", .brand = brand});
        return loaded && (*loaded)->common ? (*loaded)->common->privacyPolicy.value_or("absent") : "none";
    }

    const Testbed bed_{};
    Instance manager_{bed_.start()};
};

Oops oops(int errorCode) {
    return {InstrumentationCodes::Component::configurationManager, InstrumentationCodes::Element::configInitialization,
            errorCode, std::nullopt};
}

template <class T>
Oops errorOf(const rx::Result<T>& result) {
    const Oops* const error = result ? nullptr : result.error().template as<Oops>();
    return error ? *error : Oops{};
}

TEST_F(Loading, ReadsTheSectionOfTheBrand) { EXPECT_EQ(privacyPolicy(Brand::orvel), "of orvel"); }

TEST_F(Loading, ReadsTheWholeDocumentForABrandItDoesNotHold) {
    EXPECT_EQ(privacyPolicy(Brand::vossen), "of the root");
    EXPECT_EQ(privacyPolicy(Brand::unknown), "of the root");
}

TEST_F(Loading, ReadsTheWholeDocumentForABrandThatIsNoObject) {
    EXPECT_EQ(privacyPolicy(Brand::quintar), "of the root");
    EXPECT_EQ(privacyPolicy(Brand::tavish), "of the root");
}

TEST_F(Loading, ReadsTheWholeDocumentWithoutABrand) {
    EXPECT_EQ(privacyPolicy(std::nullopt), "of the root");
    EXPECT_EQ(manager_.configuration()->brand, std::nullopt);
}

TEST_F(Loading, PutsTheServicesOfTheRootInPlaceOfTheSections) {
    const auto loaded = load(twoBrands, {.brand = Brand::orvel});
    ASSERT_EQ((*loaded)->webServices->size(), 1U);
    EXPECT_EQ((*loaded)->webServices->at("login").url, "https://root/login");
}

TEST_F(Loading, KeepsTheSectionsServicesWhereTheRootHasNone) {
    const auto loaded = load(R"({"orvel": {"webservices": {"own": {"url": {"value": "u"}, "method": "get"}}},
                                 "webservices": []})",
                             {.brand = Brand::orvel});
    EXPECT_EQ((*loaded)->webServices->count("own"), 1U);
}

TEST_F(Loading, StampsWhatTheCallerSaysAndNotTheDocument) {
    const auto loaded = load(twoBrands, {.deviceID = "D", .brand = Brand::pellow, .version = "2"});
    EXPECT_EQ((*loaded)->brand, Brand::pellow);
    EXPECT_EQ((*loaded)->device, "D");
    EXPECT_EQ((*loaded)->version, "2");
}

TEST_F(Loading, StampsVersionOneWhereTheCallerSaysNone) {
    EXPECT_EQ((*load("{}", {.deviceID = "D"}))->version, "1.0.0");
}

TEST_F(Loading, MakesTheConfigurationTheCurrentOne) {
    EXPECT_FALSE(manager_.configured());
    const auto loaded = load("{}");
    EXPECT_TRUE(manager_.configured());
    EXPECT_EQ(manager_.configuration(), *loaded);
}

TEST_F(Loading, FailsForAFileThatCannotBeRead) {
    const auto notFound = oops(InstrumentationCodes::ErrorCode::notFound);
    EXPECT_EQ(errorOf(rx::wait(manager_.initialize(PathURL{bed_.folder().file("missing")}, {}))), notFound);
    EXPECT_EQ(errorOf(rx::wait(manager_.initialize(PathURL{bed_.folder().path()}, {}))), notFound);
    EXPECT_EQ(errorOf(rx::wait(manager_.initialize(PathURL{""}, {}))), notFound);
    EXPECT_EQ(errorOf(rx::wait(manager_.initialize(PathURL{"http://127.0.0.1/a.json"}, {}))), notFound);
}

TEST_F(Loading, FailsForAFileThatIsTooLargeAsForAMissingFile) {
    const std::string path = bed_.folder().write("sparse", "");
    ASSERT_EQ(truncate(path.c_str(), (off_t{1} << 30) + 1), 0);
    EXPECT_EQ(errorOf(rx::wait(manager_.initialize(PathURL{path}, {}))),
              oops(InstrumentationCodes::ErrorCode::notFound));
}

TEST_F(Loading, FailsForAFileThatIsNoJSON) {
    const auto parsing = oops(InstrumentationCodes::ErrorCode::jsonParsing);
    EXPECT_EQ(errorOf(load("{\"a\": ")), parsing);
    EXPECT_EQ(errorOf(load("")), parsing);
}

TEST_F(Loading, FailsForJSONOfAnotherShapeAsForAMissingFile) {
    const auto notFound = oops(InstrumentationCodes::ErrorCode::notFound);
    EXPECT_EQ(errorOf(load("42")), notFound);
    EXPECT_EQ(errorOf(load("[{}]")), notFound);
    EXPECT_EQ(errorOf(load("null")), notFound);
}

TEST_F(Loading, LeavesTheConfigurationAsItWasWhenItFails) {
    const auto first = *load(twoBrands, {.brand = Brand::orvel});
    EXPECT_FALSE(load("{"));
    EXPECT_TRUE(manager_.configured());
    EXPECT_EQ(manager_.configuration(), first);
}

TEST_F(Loading, LeavesAnEarlierConfigurationTrueForItsHolders) {
    const auto first = *load(twoBrands, {.brand = Brand::orvel});
    ASSERT_TRUE(load(twoBrands, {.brand = Brand::pellow}));
    EXPECT_EQ(first->common->privacyPolicy, "of orvel");
    EXPECT_EQ(manager_.configuration()->common->privacyPolicy, "of pellow");
}

TEST_F(Loading, DoesItsWorkBeforeItReturns) {
    const std::string path = bed_.folder().write("document.json", "{}");
    const auto stream = manager_.initialize(PathURL{path}, {});
    EXPECT_TRUE(manager_.configured());
}

TEST_F(Loading, RefreshesTheTimeZone) {
    const support::Environment before("TZ", "EST5");
    EXPECT_EQ(manager_.userZ(), "-0500");
    const support::Environment after("TZ", "CET-1");
    EXPECT_EQ(manager_.userZ(), "-0500");
    ASSERT_TRUE(load("{}"));
    EXPECT_EQ(manager_.userZ(), "+0100");
}

TEST_F(Loading, LeavesTheTimeZoneWhenItFails) {
    manager_.setUserZ("+0000");
    EXPECT_FALSE(load("{"));
    EXPECT_EQ(manager_.userZ(), "+0000");
}

TEST_F(Loading, ReadsAPipe) {
    const std::string path = bed_.folder().file("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    std::thread writer([&] { std::ofstream(path) << twoBrands; });
    EXPECT_TRUE(rx::wait(manager_.initialize(PathURL{path}, {.brand = Brand::orvel})));
    writer.join();
}

TEST_F(Loading, TellsWhatWasNotTakenWithItsPlace) {
    ASSERT_TRUE(load("{\"orvel\": {\"auth\": {\"sso\": \"yes\"},\n \"groups\": [{\"id\": \"g\"}]},\n \"bris\": {}}",
                     {.brand = Brand::orvel, .findings = true}));
    const Finding sso{"/orvel/auth/sso", "boolean", "string", Cost::fieldAbsent, json::Position{1, 28}};
    const Finding group{"/orvel/groups/0/title", "string", "nothing", Cost::elementDropped, json::Position{2, 13}};
    EXPECT_THAT(findings(), testing::UnorderedElementsAre(sso, group));
}

TEST_F(Loading, TellsOfRootServicesAtTheRoot) {
    ASSERT_TRUE(
        load(R"({"orvel": {"webservices": {}}, "webservices": {"a": 1}})", {.brand = Brand::orvel, .findings = true}));
    const Finding own{"/orvel/webservices", "nothing", "object", Cost::overridden, json::Position{1, 27}};
    const Finding shared{"/webservices/a", "object", "number", Cost::mapDropped, json::Position{1, 53}};
    EXPECT_THAT(findings(), testing::UnorderedElementsAre(own, shared));
}

TEST_F(Loading, TellsOfMembersBesideTheBrands) {
    ASSERT_TRUE(load(R"({"orvel": {}, "features": {}})", {.brand = Brand::orvel, .findings = true}));
    const Finding beside{"/features", "nothing", "object", Cost::notAsked, json::Position{1, 27}};
    EXPECT_THAT(findings(), ElementsAre(beside));
}

TEST(Config, YieldsTheDocumentWithoutABrand) {
    const DocumentMap document{{"a", 1}};
    EXPECT_EQ(Instance::config(document, std::nullopt), document);
}

TEST(Config, YieldsTheSectionWithTheServicesOfTheRoot) {
    const DocumentMap document{{"orvel", DocumentMap{{"a", 1}, {"webservices", 2}}},
                               {"webservices", DocumentMap{{"s", 3}}}};
    EXPECT_EQ(Instance::config(document, Brand::orvel),
              (DocumentMap{{"a", 1}, {"webservices", DocumentMap{{"s", 3}}}}));
}

TEST(Config, CopiesNoValueOfTheSection) {
    const DocumentMap document{{"orvel", DocumentMap{{"a", "a long text that stays where it is"}}},
                               {"webservices", DocumentMap{}}};
    const auto before = document.find("orvel")->asObject()->find("a");
    const auto after = Instance::config(document, Brand::orvel).find("a");
    EXPECT_EQ(before->asString()->data(), after->asString()->data());
}

}  // namespace
}  // namespace quorin
