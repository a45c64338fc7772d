#include "quorin/model/Configuration.hpp"

#include "tests/table/Documents.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin {
namespace {

TEST(Configuration, HasNoFieldsFromAnEmptyDocument) {
    EXPECT_EQ(readDocument<Configuration>("{}"), Configuration{});
    EXPECT_EQ(archived<Configuration>("{}"), "{}");
}

TEST(Configuration, NeverReadsBrandDeviceAndVersion) {
    constexpr auto text = R"({"brand": "orvel", "device": "d", "version": "1"})";
    EXPECT_EQ(readDocument<Configuration>(text), Configuration{});
    EXPECT_EQ(readArchive<Configuration>(text), Configuration{});
}

TEST(Configuration, WritesBrandDeviceAndVersion) {
    const Configuration stamped{.brand = Brand::vossen, .device = "d", .version = ""};
    EXPECT_EQ(json::print(stamped.encode()), R"({"brand":"voss","device":"d","version":""})");
}

TEST(Configuration, ReadsBackEqualButForBrandDeviceAndVersion) {
    Configuration stamped{.brand = Brand::orvel, .device = "d", .version = "1", .profile = Profile{.limit = 1}};
    const auto back = Configuration::fromEncoded(stamped.encode());
    EXPECT_NE(back, stamped);
    stamped.brand.reset();
    stamped.device.reset();
    stamped.version.reset();
    EXPECT_EQ(back, stamped);
}

TEST(Configuration, DiffersByBrandDeviceAndVersion) {
    EXPECT_NE(Configuration{.brand = Brand::orvel}, Configuration{});
    EXPECT_NE(Configuration{.brand = Brand::orvel}, Configuration{.brand = Brand::unknown});
    EXPECT_NE(Configuration{.device = ""}, Configuration{});
    EXPECT_NE(Configuration{.version = ""}, Configuration{});
}

TEST(Configuration, TellsAnAbsentSectionFromAnEmptyOne) {
    EXPECT_NE(Configuration{.common = Common{}}, Configuration{});
    EXPECT_NE((Configuration{.groups = std::vector<Group>{}}), Configuration{});
    EXPECT_NE((Configuration{.features = MapOf<Feature>{}}), Configuration{});
}

TEST(Configuration, LeavesOutFeaturesWithoutMembers) {
    const auto read = readDocument<Configuration>(R"({"features": {"chat": {}, "cast": {"enabled": true}}})");
    EXPECT_EQ(read->features, (MapOf<Feature>{{"cast", Feature{"cast", DocumentMap{{"enabled", true}}}}}));
}

TEST(Configuration, NamesFeaturesByTheirMembers) {
    const auto read = readDocument<Configuration>(R"({"features": {"chat": {"name": "other"}}})");
    EXPECT_EQ(read->features->at("chat"), (Feature{"chat", DocumentMap{{"name", "other"}}}));
}

TEST(Configuration, ReadsArchivedFeaturesByTheirOwnKeys) {
    const auto read = readArchive<Configuration>(R"({"features": {"a": {"name": "b", "params": {"x": 1}}, "c": {}}})");
    EXPECT_EQ(read->features, (MapOf<Feature>{{"a", Feature{"b", DocumentMap{{"x", 1}}}}, {"c", Feature{}}}));
}

TEST(Configuration, NamesServicesByTheirMembers) {
    const auto read = readDocument<Configuration>(
        R"({"webservices": {"login": {"name": "other", "url": {"value": "u"}, "method": "GET"}}})");
    EXPECT_EQ(read->webServices->at("login").name, "login");
}

TEST(Configuration, NamesServicesByTheirMembersWhateverTheirNameHolds) {
    const auto read = readDocument<Configuration>(
        R"({"webservices": {"login": {"name": 7, "url": {"value": "u"}, "method": "GET"}}})");
    EXPECT_EQ(read->webServices->at("login").name, "login");
}

TEST(Configuration, ReadsArchivedServicesAsTheyStand) {
    const auto read = readArchive<Configuration>(R"({"webservices": {
        "login": {"name": "other", "url": "u", "method": "GET", "Content-Type": "application/json"},
        "bare": {"url": "u", "method": "GET", "Content-Type": "application/json"}}})");
    EXPECT_EQ(read->webServices->size(), 1u);
    EXPECT_EQ(read->webServices->at("login").name, "other");
}

TEST(Configuration, LeavesOutServicesThatDoNotRead) {
    const auto read = readDocument<Configuration>(
        R"({"webservices": {"a": {"url": "u", "method": "GET"}, "b": {"url": {"value": "u"}, "method": "put"}, "c": {}}})");
    EXPECT_EQ(read->webServices,
              (MapOf<WebService>{{"b", WebService{.name = "b", .url = "u", .method = HTTPMethod::PUT}}}));
}

TEST(Configuration, LeavesOutGroupsThatDoNotReadAndKeepsTheOrder) {
    const auto read = readDocument<Configuration>(
        R"({"groups": [{"id": "b", "title": "B"}, {"id": "g1"}, {"title": "t"}, {"id": 1, "title": "t"}, {"id": "a", "title": ""}]})");
    EXPECT_EQ(read->groups, (std::vector<Group>{{"b", "B"}, {"a", ""}}));
}

TEST(Configuration, GivesLayoutsTheNameOfTheirMember) {
    const auto read = readDocument<Configuration>(R"({"layouts": {"home": {"id": "other", "paginationSize": 20}}})");
    EXPECT_EQ(read->layouts->at("home"), (ConfigLayout{.id = "home", .paginationSize = 20}));
}

TEST(Configuration, LeavesOutLayoutsThatAreNoObjectsAndKeepsTheOthers) {
    const auto read = readDocument<Configuration>(R"({"layouts": {"home": {}, "bad": 1, "worse": null, "live": {}}})");
    EXPECT_EQ(read->layouts, (MapOf<ConfigLayout>{{"home", {.id = "home"}}, {"live", {.id = "live"}}}));
}

TEST(Configuration, HasNoLayoutsFromAValueThatIsNoObject) {
    for (const auto text : {R"({"layouts": []})", R"({"layouts": "home"})", R"({"layouts": null})"})
        EXPECT_FALSE(readDocument<Configuration>(text)->layouts) << text;
    EXPECT_EQ(readDocument<Configuration>(R"({"layouts": {"a": 1}})")->layouts, MapOf<ConfigLayout>{});
}

TEST(Configuration, LosesArchivedLayoutsWholeByOneThatIsNoObject) {
    EXPECT_FALSE(readArchive<Configuration>(R"({"layouts": {"home": {}, "bad": 1}})")->layouts);
    EXPECT_TRUE(readArchive<Configuration>(R"({"layouts": {"home": {}}})")->layouts);
}

TEST(Configuration, LeavesArchivedLayoutsTheirOwnIdentifiers) {
    const auto read = readArchive<Configuration>(R"({"layouts": {"home": {"id": "other"}, "live": {}}})");
    EXPECT_EQ(read->layouts, (MapOf<ConfigLayout>{{"home", {.id = "other"}}, {"live", {}}}));
}

TEST(Configuration, ReadsOtherSectionsBesideAMalformedOne) {
    const auto read = readDocument<Configuration>(R"({"groups": 1, "auth": [], "profile": {"limit": 5}})");
    EXPECT_EQ(read, (Configuration{.profile = Profile{.limit = 5}}));
}

TEST(Configuration, StaysTheSameWithoutItsDocument) {
    std::optional<DocumentMap> document =
        object(R"({"features": {"chat": {"deep": ["a long enough text to stand alone"]}}})");
    const auto read = Configuration::fromJSON(*document);
    document.reset();
    EXPECT_EQ(json::print(*read->features->at("chat").params), R"({"deep":["a long enough text to stand alone"]})");
}

TEST(Configuration, SpellsItsKeys) {
    using Keys = Configuration::Keys;
    EXPECT_EQ(Keys::brand, "brand");
    EXPECT_EQ(Keys::device, "device");
    EXPECT_EQ(Keys::version, "version");
    EXPECT_EQ(Keys::webServices, "webservices");
    EXPECT_EQ(Keys::appVersion, "appversion");
    EXPECT_EQ(Keys::initialize, "init");
    EXPECT_EQ(Keys::videoPlayer, "videoPlayer");
}

}  // namespace
}  // namespace quorin
