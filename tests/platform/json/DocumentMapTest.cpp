#include "quorin/platform/json/DocumentMap.hpp"

#include "tests/platform/json/Parsed.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace quorin::json {
namespace {

DocumentMap ofSize(int count) {
    DocumentMap map;
    for (int i = 0; i < count; ++i) map = map.with("k" + std::to_string(i), i);
    return map;
}

TEST(DocumentMap, IsEmptyUnlessMadeFromMembers) {
    EXPECT_TRUE(DocumentMap().empty());
    EXPECT_EQ(DocumentMap().size(), 0u);
    EXPECT_EQ(print(DocumentMap()), "{}");
    for (const auto& [name, value] : DocumentMap()) ADD_FAILURE() << name;
}

TEST(DocumentMap, FindsItsMembers) {
    const DocumentMap map{{"a", 1}, {"b", nullptr}, {"", "empty"}};
    EXPECT_EQ(map.find("a"), Value(1));
    EXPECT_EQ(map.find("b"), Value(nullptr));
    EXPECT_EQ(map.find(""), Value("empty"));
    EXPECT_EQ(map.find("c"), std::nullopt);
    EXPECT_EQ(map.find("A"), std::nullopt);
}

TEST(DocumentMap, FindsItsMembersHoweverManyThereAre) {
    for (const int count : {1, 15, 16, 17, 18, 300}) {
        const DocumentMap map = ofSize(count);
        ASSERT_EQ(map.size(), static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) EXPECT_EQ(map.find("k" + std::to_string(i)), Value(i)) << count;
        EXPECT_FALSE(map.contains("k"));
        EXPECT_FALSE(map.contains("k" + std::to_string(count)));
        EXPECT_FALSE(map.contains("zzz"));
    }
}

TEST(DocumentMap, SaysWhetherItHoldsAMember) {
    const DocumentMap map{{"a", nullptr}};
    EXPECT_TRUE(map.contains("a"));
    EXPECT_FALSE(map.contains("b"));
}

TEST(DocumentMap, GivesMembersInDocumentOrder) {
    const DocumentMap map{{"z", 1}, {"a", 2}};
    EXPECT_EQ(map.at(0).first, "z");
    EXPECT_EQ(map.at(1).first, "a");
    EXPECT_EQ(map.at(1).second, Value(2));
}

TEST(DocumentMap, IteratesInDocumentOrder) {
    std::string seen;
    for (const auto& [name, value] : DocumentMap{{"z", 1}, {"a", "x"}, {"m", nullptr}})
        seen += std::string(name) + print(value) + " ";
    EXPECT_EQ(seen, "z1 a\"x\" mnull ");
}

TEST(DocumentMap, IteratesLargeMapsInDocumentOrderToo) {
    int expected = 0;
    const DocumentMap map = ofSize(40);
    for (const auto& [name, value] : map) EXPECT_EQ(value, Value(expected++)) << name;
    EXPECT_EQ(expected, 40);
}

TEST(DocumentMap, TakesTheLastOfTwoMembersOfOneName) {
    const DocumentMap map{{"a", 1}, {"b", 2}, {"a", 3}};
    EXPECT_EQ(map.size(), 2u);
    EXPECT_EQ(map.find("a"), Value(3));
}

TEST(DocumentMap, IsMadeFromMembersThatWereCollected) {
    const std::vector<DocumentMap::Member> none;
    EXPECT_EQ(DocumentMap(none), DocumentMap());
    const std::vector<DocumentMap::Member> members{{"z", 1}, {"a", List{"x"}}};
    EXPECT_EQ(DocumentMap(members), parsed(R"({"z": 1, "a": ["x"]})").asObject());
    EXPECT_EQ(DocumentMap(members).at(0).first, "z");
}

TEST(DocumentMap, TakesTheLastOfTwoCollectedMembersOfOneName) {
    const std::vector<DocumentMap::Member> members{{"a", 1}, {"b", 2}, {"a", 3}};
    const DocumentMap map(members);
    EXPECT_EQ(map.size(), 2u);
    EXPECT_EQ(map.at(0).first, "b");
    EXPECT_EQ(map.find("a"), Value(3));
}

TEST(DocumentMap, CopiesTheMembersThatWereCollected) {
    std::vector<std::string> texts{"name", "value"};
    const DocumentMap map(std::vector<DocumentMap::Member>{{texts[0], texts[1]}});
    texts = {"else", "other"};
    EXPECT_EQ(print(map), R"({"name":"value"})");
}

TEST(DocumentMap, GainsAMember) {
    EXPECT_EQ(print((DocumentMap{{"a", 1}}).with("b", "x")), R"({"a":1,"b":"x"})");
    EXPECT_EQ(print(DocumentMap().with("a", 1)), R"({"a":1})");
}

TEST(DocumentMap, ReplacesAMember) {
    const DocumentMap map = DocumentMap{{"a", 1}, {"b", 2}}.with("a", List{3});
    EXPECT_EQ(print(map), R"({"a":[3],"b":2})");
    EXPECT_EQ(map.size(), 2u);
}

TEST(DocumentMap, ReplacesAMemberOfALargeMap) {
    const DocumentMap map = ofSize(100).with("k50", "new");
    EXPECT_EQ(map.size(), 100u);
    EXPECT_EQ(map.find("k50"), Value("new"));
    EXPECT_EQ(map.find("k51"), Value(51));
}

TEST(DocumentMap, StaysAsItIsWhenAnotherIsMadeWithAMember) {
    const DocumentMap map{{"a", 1}};
    EXPECT_EQ(map.with("a", 2), (DocumentMap{{"a", 2}}));
    EXPECT_EQ(map, (DocumentMap{{"a", 1}}));
}

TEST(DocumentMap, CopiesNothingWhenAnotherIsMadeWithAMember) {
    const DocumentMap map{{"a", "old text"}};
    const Value added("new text");
    const DocumentMap wider = map.with("b", added);
    EXPECT_EQ(wider.find("a")->asString()->data(), map.find("a")->asString()->data());
    EXPECT_EQ(wider.find("b")->asString()->data(), added.asString()->data());
}

TEST(DocumentMap, KeepsAliveWhatItWasMadeWith) {
    std::optional<DocumentMap> map = DocumentMap{{"a", "a text of the first map"}};
    std::optional<Value> added = parsed(R"(["an added text"])");
    const DocumentMap wider = map->with("b", *added);
    map.reset();
    added.reset();
    EXPECT_EQ(print(wider), R"({"a":"a text of the first map","b":["an added text"]})");
}

TEST(DocumentMap, TakesItselfAsAMember) {
    DocumentMap map{{"a", 1}};
    map = map.with("self", map);
    EXPECT_EQ(print(map), R"({"a":1,"self":{"a":1}})");
}

TEST(DocumentMap, EndsALongChainOfAdditionsWithoutOverflow) {
    DocumentMap map{{"count", 0}};
    for (int i = 1; i <= 200'000; ++i) map = map.with("count", i);
    EXPECT_EQ(map.find("count"), Value(200'000));
}

TEST(DocumentMap, EndsALongChainThroughItsValuesWithoutOverflow) {
    Value last = "begin";
    for (int i = 0; i < 200'000; ++i) {
        const DocumentMap map = DocumentMap().with("a", last).with("b", 1);
        last = *map.with("c", 2).find("a");
    }
    EXPECT_EQ(last.asString(), "begin");
}

TEST(DocumentMap, IsDroppedByManyThreadsAtOnce) {
    DocumentMap map{{"a", "text"}};
    for (int i = 0; i < 1000; ++i) map = map.with("b", i);
    std::thread first([copy = map] { EXPECT_EQ(copy.find("b"), Value(999)); });
    std::thread second([copy = map.with("c", 1)] { EXPECT_EQ(copy.find("a"), Value("text")); });
    map = DocumentMap();
    first.join();
    second.join();
}

/// A map in a map, `levels` times.
DocumentMap nestedMaps(int levels) {
    DocumentMap map;
    for (int i = 1; i < levels; ++i) map = DocumentMap{{"a", map}};
    return map;
}

TEST(DocumentMap, HoldsNullInPlaceOfALevelTooMany) {
    const std::string deepest = print(nestedMaps(1024));
    EXPECT_NE(deepest.find(R"({"a":{}})"), std::string::npos);
    const std::string tooDeep = print(nestedMaps(1025));
    EXPECT_NE(tooDeep.find(R"({"a":null})"), std::string::npos);
    EXPECT_EQ(tooDeep.size(), deepest.size() + std::string_view(R"("a":null)").size());
}

TEST(DocumentMap, KeepsItsOtherMembersBesideOneThatIsNestedTooDeep) {
    const DocumentMap map = nestedMaps(2).with("deep", nestedMaps(1024));
    EXPECT_TRUE(map.contains("a"));
    EXPECT_EQ(map.find("deep")->kind(), Kind::object);
    EXPECT_EQ(map.value().node().height, 1024);
}

TEST(DocumentMap, TakesItselfAThousandTimesWithoutOverflow) {
    DocumentMap map;
    for (int i = 0; i < 5000; ++i) map = map.with("a", map);
    EXPECT_LE(map.size(), 1u);
}

}  // namespace
}  // namespace quorin::json
