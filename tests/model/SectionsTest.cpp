#include "quorin/model/Configuration.hpp"

#include "tests/table/Documents.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quorin {
namespace {

TEST(ApplicationData, NestsVersionsInTheDocumentAndKeepsThemFlatInTheArchive) {
    const auto read = readDocument<ApplicationData>(R"({"version": {"latest": "3.2"}})");
    EXPECT_EQ(read->latestVersion, "3.2");
    EXPECT_FALSE(read->requiredVersion);
    EXPECT_EQ(json::print(read->encode()), R"({"latest":"3.2"})");
}

TEST(ApplicationData, HasNoVersionsFromAValueThatIsNoObject) {
    for (const auto text :
         {R"({"version": "3.2"})", R"({"version": null})", R"({"version": ["3.2"]})", R"({"latest": "3.2"})"})
        EXPECT_EQ(readDocument<ApplicationData>(text), ApplicationData{}) << text;
}

TEST(ApplicationData, DoesNotLookIntoAVersionInTheArchive) {
    EXPECT_EQ(readArchive<ApplicationData>(R"({"version": {"latest": "3.2", "required": "3"}})"), ApplicationData{});
}

TEST(ApplicationData, KeepsOneVersionWhenTheOtherIsWrong) {
    EXPECT_EQ(readDocument<ApplicationData>(R"({"version": {"latest": 3, "required": "3"}})"),
              ApplicationData{.requiredVersion = "3"});
}

TEST(Group, NeedsItsIdentifierAndItsTitle) {
    for (const auto text : {"{}", R"({"id": "g1"})", R"({"title": "t"})", R"({"id": 1, "title": "t"})",
                            R"({"id": "g", "title": null})"}) {
        EXPECT_FALSE(readDocument<Group>(text)) << text;
        EXPECT_FALSE(readArchive<Group>(text)) << text;
    }
}

TEST(Group, MayHaveEmptyTexts) { EXPECT_EQ(readDocument<Group>(R"({"id": "g1", "title": ""})"), (Group{"g1", ""})); }

TEST(Group, IsWrittenWithBothTexts) {
    EXPECT_EQ(archived<Group>(R"({"id": "g1", "title": "t", "x": 1})"), R"({"id":"g1","title":"t"})");
}

TEST(Group, DiffersWhenOneFieldDiffers) {
    EXPECT_NE((Group{"a", "t"}), (Group{"b", "t"}));
    EXPECT_NE((Group{"a", "t"}), (Group{"a", "u"}));
    EXPECT_EQ((Group{"a", "t"}), (Group{"a", "t"}));
}

TEST(Group, SpellsItsKeys) {
    EXPECT_EQ(Group::GroupKeys::id, "id");
    EXPECT_EQ(Group::GroupKeys::title, "title");
}

TEST(Feature, IsTheWholeObjectUnderItsName) {
    const auto read = Feature::fromJSON(object(R"({"enabled": true})"), "chat");
    EXPECT_EQ(read, (Feature{"chat", DocumentMap{{"enabled", true}}}));
    EXPECT_EQ(json::print(read->encode()), R"({"name":"chat","params":{"enabled":true}})");
}

TEST(Feature, HasNoNameOfItsOwnInTheDocument) {
    EXPECT_EQ(readDocument<Feature>(R"({"name": "x"})"), (Feature{{}, DocumentMap{{"name", "x"}}}));
}

TEST(Feature, IsNothingWithoutMembers) {
    EXPECT_FALSE(readDocument<Feature>("{}"));
    EXPECT_FALSE(Feature::fromJSON(DocumentMap(), "chat"));
}

TEST(Feature, InterpretsNothingInsideItself) {
    constexpr auto text = R"({"a":null,"b":[1,1.5,"x",{"c":18446744073709551615}]})";
    EXPECT_EQ(json::print(*readDocument<Feature>(text)->params), text);
}

TEST(Feature, AlwaysReadsFromTheArchive) {
    EXPECT_EQ(readArchive<Feature>("{}"), Feature{});
    EXPECT_EQ(readArchive<Feature>(R"({"name": 1, "params": []})"), Feature{});
    EXPECT_EQ(readArchive<Feature>(R"({"name": "", "params": {}})"), (Feature{"", DocumentMap()}));
}

TEST(Feature, ComparesItsParametersDeeplyAndByValue) {
    const auto feature = [](std::string_view params) { return Feature{"chat", object(params)}; };
    EXPECT_EQ(feature(R"({"a": 1, "b": [{"c": 0}]})"), feature(R"({"b": [{"c": false}], "a": true})"));
    EXPECT_NE(feature(R"({"a": 1})"), feature(R"({"a": "1"})"));
    EXPECT_NE(feature(R"({"a": {"b": 1}})"), feature(R"({"a": {"b": 2}})"));
    EXPECT_NE(feature("{}"), (Feature{"chat", {}}));
    EXPECT_NE(feature("{}"), (Feature{"cast", DocumentMap()}));
    EXPECT_NE((Feature{"", {}}), Feature{});
}

TEST(Feature, IsWrittenEvenWhenAHostsParametersAreNestedTooDeep) {
    DocumentMap params;
    for (int i = 1; i < 1024; ++i) params = DocumentMap{{"a", params}};
    const DocumentMap encoded = Configuration{.features = {{{"chat", {"chat", params}}}}}.encode();
    const auto read = Configuration::fromEncoded(encoded);
    EXPECT_EQ(read->features->at("chat").name, "chat");
    EXPECT_TRUE(read->features->at("chat").params->contains("a"));
}

TEST(ConfigLayout, TakesItsIdentifierFromTheName) {
    const auto read = ConfigLayout::fromJSON(object(R"({"id": "other", "paginationSize": 20})"), "home");
    EXPECT_EQ(read, (ConfigLayout{.id = "home", .paginationSize = 20}));
}

TEST(ConfigLayout, HasNoIdentifierWithoutAName) {
    EXPECT_EQ(readDocument<ConfigLayout>(R"({"id": "x"})"), ConfigLayout{});
    EXPECT_EQ(archived<ConfigLayout>(R"({"id": "x"})"), "{}");
}

TEST(ConfigLayout, KeepsItsIdentifierInTheArchive) {
    const auto read = ConfigLayout::fromJSON(object(R"({"successDuration": 1})"), "home");
    EXPECT_EQ(json::print(read->encode()), R"({"id":"home","successDuration":1})");
    EXPECT_EQ(ConfigLayout::fromEncoded(read->encode()), read);
    EXPECT_NE(read, ConfigLayout::fromJSON(object(R"({"successDuration": 1})"), "live"));
}

TEST(Player, KeepsTheSpellingOfItsReceiversKey) {
    EXPECT_FALSE(readDocument<Player>(R"({"castRecieverID": "x"})")->castRecieverID);
    EXPECT_FALSE(readDocument<Player>(R"({"castReceiverId": "x"})")->castRecieverID);
    EXPECT_EQ(readDocument<Player>(R"({"castRecieverId": "x"})")->castRecieverID, "x");
}

TEST(Player, IsReadBesideAMalformedSection) {
    EXPECT_EQ(readDocument<Player>(R"({"ads": [], "contentTimeout": 5})"), Player{.contentTimeout = 5});
}

TEST(Player, WritesASectionWithoutFields) { EXPECT_EQ(json::print(Player{.ads = Ads{}}.encode()), R"({"ads":{}})"); }

TEST(ContinuousPlayback, ReadsWhatIsThereOfANestedSection) {
    const auto read = Player::fromJSON(object(R"({"continuousPlayback": {"timing": {"sf": 5}}})"));
    EXPECT_EQ(read->continuousPlayback, ContinuousPlayback{.timing = Timing{.sf = 5}});
}

TEST(AnalyticSuite, KeepsTheSpellingOfItsCodesKey) {
    EXPECT_FALSE(readDocument<AnalyticSuite>(R"({"sfCode": "x"})")->sfCode);
    EXPECT_EQ(readDocument<AnalyticSuite>(R"({"sf_code": "x"})")->sfCode, "x");
}

TEST(Auth, KeepsItsChannelsInOrder) {
    EXPECT_EQ(readDocument<Auth>(R"({"preAuthChannels": ["b", "a"]})")->preAuthChannels,
              (std::vector<std::string>{"b", "a"}));
    EXPECT_FALSE(readDocument<Auth>(R"({"preAuthChannels": "a"})")->preAuthChannels);
}

TEST(Initialize, TakesNoDigitsForACount) {
    EXPECT_EQ(readDocument<Initialize>(R"({"compulsiveRewardCount": 3})")->compulsiveRewardCount, 3);
    EXPECT_FALSE(readDocument<Initialize>(R"({"compulsiveRewardCount": "3"})")->compulsiveRewardCount);
}

TEST(Sections, TellAnAbsentFieldFromAnEmptyOne) {
    EXPECT_NE(Common{.adChoices = ""}, Common{});
    EXPECT_NE(Ads{.freeTime = 0}, Ads{});
    EXPECT_NE(Ads{.vpaidEnabled = false}, Ads{});
    EXPECT_NE((Auth{.preAuthChannels = std::vector<std::string>{}}), Auth{});
}

TEST(Sections, CompareListsByOrderAndCount) {
    const auto auth = [](std::vector<std::string> channels) { return Auth{.preAuthChannels = std::move(channels)}; };
    EXPECT_NE(auth({"a", "b"}), auth({"b", "a"}));
    EXPECT_NE(auth({"a"}), auth({"a", "a"}));
}

}  // namespace
}  // namespace quorin
