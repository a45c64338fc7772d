#include "tests/model/AnyModel.hpp"
#include "tests/table/Documents.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace quorin {
namespace {

template <class Model>
void readsBackEqual() {
    const Model model = *any<Model>();
    RC_ASSERT(Model::fromEncoded(model.encode()) == model);
}

RC_GTEST_PROP(RoundTrip, KeepsConfigurations, ()) { readsBackEqual<Configuration>(); }
RC_GTEST_PROP(RoundTrip, KeepsInitialize, ()) { readsBackEqual<Initialize>(); }
RC_GTEST_PROP(RoundTrip, KeepsAppVersions, ()) { readsBackEqual<AppVersion>(); }
RC_GTEST_PROP(RoundTrip, KeepsApplicationData, ()) { readsBackEqual<ApplicationData>(); }
RC_GTEST_PROP(RoundTrip, KeepsCommon, ()) { readsBackEqual<Common>(); }
RC_GTEST_PROP(RoundTrip, KeepsAuth, ()) { readsBackEqual<Auth>(); }
RC_GTEST_PROP(RoundTrip, KeepsProfiles, ()) { readsBackEqual<Profile>(); }
RC_GTEST_PROP(RoundTrip, KeepsGroups, ()) { readsBackEqual<Group>(); }
RC_GTEST_PROP(RoundTrip, KeepsFeatures, ()) { readsBackEqual<Feature>(); }
RC_GTEST_PROP(RoundTrip, KeepsPlayers, ()) { readsBackEqual<Player>(); }
RC_GTEST_PROP(RoundTrip, KeepsAds, ()) { readsBackEqual<Ads>(); }
RC_GTEST_PROP(RoundTrip, KeepsContinuousPlayback, ()) { readsBackEqual<ContinuousPlayback>(); }
RC_GTEST_PROP(RoundTrip, KeepsTiming, ()) { readsBackEqual<Timing>(); }
RC_GTEST_PROP(RoundTrip, KeepsDuration, ()) { readsBackEqual<Duration>(); }
RC_GTEST_PROP(RoundTrip, KeepsAnalyticSuites, ()) { readsBackEqual<AnalyticSuite>(); }
RC_GTEST_PROP(RoundTrip, KeepsLayouts, ()) { readsBackEqual<ConfigLayout>(); }
RC_GTEST_PROP(RoundTrip, KeepsWebServices, ()) { readsBackEqual<WebService>(); }

/// What reads from `map` in either form is written and read back equal, and a report changes nothing.
template <class Model>
void readsStably(const DocumentMap& map) {
    ReadReport report;
    const auto read = Model::fromJSON(map);
    RC_ASSERT(Model::fromJSON(map, &report) == read);
    const auto decoded = Model::fromEncoded(map);
    RC_ASSERT(Model::fromEncoded(map, &report) == decoded);
    if (read) RC_ASSERT(Model::fromEncoded(read->encode()) == read);  // a "||" in the brackets would read both sides
    if (decoded) RC_ASSERT(Model::fromEncoded(decoded->encode()) == decoded);
}

template <class... Models>
void allReadStably(const DocumentMap& map) {
    (readsStably<Models>(map), ...);
}

void everyModelReadsStably(const DocumentMap& map) {
    allReadStably<Configuration, Initialize, AppVersion, ApplicationData, Common, Auth, Profile, Group, Feature, Player,
                  Ads, ContinuousPlayback, Timing, Duration, AnalyticSuite, ConfigLayout, WebService>(map);
}

rc::Gen<std::string> anyKey() {
    return rc::gen::element<std::string>(
        "webservices", "groups", "common", "appversion", "analytics", "init", "auth", "videoPlayer", "layouts",
        "profile", "application", "features", "brand", "name", "params", "url", "value", "method", "header", "Accept",
        "Content-Type", "id", "title", "version", "latest", "required", "author", "ads", "freeTime", "timeout",
        "vpaidEnabled", "continuousPlayback", "timing", "duration", "sf", "lf", "enabled", "limit", "preAuthChannels",
        "sso", "storeLink", "logLevel", "sf_code", "paginationSize", "castRecieverId", "x");
}

RC_GTEST_PROP(Reading, IsStableForAnyObject, (const json::Members& members)) {
    everyModelReadsStably(*json::objectOf(members).asObject());
}

RC_GTEST_PROP(Reading, IsStableForObjectsWithTheKeysOfTheModels, ()) {
    const auto value = json::anyValue(anyKey(), 3);
    const auto members = *rc::gen::resize(20, rc::gen::container<json::Members>(rc::gen::pair(anyKey(), value)));
    RC_LOG() << json::print(json::objectOf(members)) << '\n';
    everyModelReadsStably(*json::objectOf(members).asObject());
}

std::string sampleText(const std::string& name) {
    std::ifstream file(QUORIN_SOURCE_DIR "/examples/documents/" + name);
    return {std::istreambuf_iterator<char>(file), {}};
}

DocumentMap sample(const std::string& name) { return object(sampleText(name)); }

/// The value with one of about `rarity` values in it replaced.
Value mutated(const Value& value, int rarity) {
    if (*rc::gen::inRange(0, rarity) == 0)
        return *rc::gen::oneOf(json::anyScalar(),
                               rc::gen::element<Value>(List{}, DocumentMap{}, List{1}, List{DocumentMap{}}));
    if (const auto list = value.asList()) {
        std::vector<Value> items;
        for (std::size_t i = 0; i < list->size(); ++i) items.push_back(mutated((*list)[i], rarity));
        return List(items);
    }
    if (const auto map = value.asObject()) {
        json::Members members;
        for (const auto& [name, member] : *map) members.emplace_back(name, mutated(member, rarity));
        return json::objectOf(members);
    }
    return value;
}

TEST(Reading, ReadsTheSectionsOfTheSampleDocumentsBack) {
    for (const auto name : {"minimal.json", "family.json"}) {
        const DocumentMap document = sample(name);
        EXPECT_TRUE(document.contains("orvel")) << name;
        for (const auto& [brand, section] : document) {
            const auto read = Configuration::fromJSON(section.asObject().value_or(DocumentMap()));
            EXPECT_EQ(Configuration::fromEncoded(read->encode()), read) << brand;
        }
    }
}

TEST(Reading, RefusesTheBrokenSampleDocument) {
    EXPECT_FALSE(sampleText("broken.json").empty());
    EXPECT_FALSE(json::parse(sampleText("broken.json")));
}

RC_GTEST_PROP(Reading, IsStableForMutatedSampleDocuments, ()) {
    static const DocumentMap document = sample("family.json").find("tvs")->asObject().value_or(DocumentMap());
    const int rarity = *rc::gen::element(20, 60, 200);
    if (const auto map =
            mutated(document.with("webservices", *sample("minimal.json").find("webservices")), rarity).asObject())
        everyModelReadsStably(*map);
}

}  // namespace
}  // namespace quorin
