#include "quorin/platform/json/Builder.hpp"
#include "quorin/platform/json/Value.hpp"

#include "tests/platform/json/Parsed.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace quorin::json {
namespace {

TEST(Value, IsNullUnlessMadeFromSomething) {
    EXPECT_EQ(Value().kind(), Kind::null);
    EXPECT_EQ(Value(nullptr).kind(), Kind::null);
}

TEST(Value, KnowsItsKind) {
    EXPECT_EQ(Value(true).kind(), Kind::boolean);
    EXPECT_EQ(Value(1).kind(), Kind::integer);
    EXPECT_EQ(Value(1.0).kind(), Kind::real);
    EXPECT_EQ(Value("a").kind(), Kind::string);
    EXPECT_EQ(Value(List{}).kind(), Kind::list);
    EXPECT_EQ(Value(DocumentMap{}).kind(), Kind::object);
}

TEST(Value, ConvertsNothing) {
    EXPECT_FALSE(Value(1).asBoolean());
    EXPECT_FALSE(Value(1.0).asInteger());
    EXPECT_FALSE(Value(1).asReal());
    EXPECT_FALSE(Value(1).asUnsigned());
    EXPECT_FALSE(Value("1").asInteger());
    EXPECT_FALSE(Value(List{}).asObject());
    EXPECT_FALSE(Value(DocumentMap{}).asList());
    EXPECT_FALSE(Value().asString());
}

TEST(Value, IsNullInPlaceOfADoubleThatIsNotFinite) {
    EXPECT_EQ(Value(std::numeric_limits<double>::infinity()).kind(), Kind::null);
    EXPECT_EQ(Value(std::nan("")).kind(), Kind::null);
}

TEST(Value, NamesEveryKindInWords) {
    EXPECT_EQ(nameOf(Kind::null), "null");
    EXPECT_EQ(nameOf(Kind::boolean), "boolean");
    EXPECT_EQ(nameOf(Kind::integer), "number");
    EXPECT_EQ(nameOf(Kind::unsignedInteger), "number");
    EXPECT_EQ(nameOf(Kind::real), "number");
    EXPECT_EQ(nameOf(Kind::string), "string");
    EXPECT_EQ(nameOf(Kind::list), "list");
    EXPECT_EQ(nameOf(Kind::object), "object");
}

TEST(Value, SharesItsTextWithACopy) {
    Value value("a text");
    const Value copy = value;
    const char* const text = value.asString()->data();
    value = Value();
    EXPECT_EQ(copy.asString()->data(), text);
    EXPECT_EQ(copy.asString(), "a text");
}

TEST(Value, SharesItsTreeWithItsParts) {
    const Value tree = parsed(R"({"a": ["text"]})");
    const auto text = [&] { return (*tree.asObject()->find("a")->asList())[0].asString()->data(); };
    EXPECT_EQ(text(), text());
}

TEST(Value, KeepsItsTreeAliveThroughOnePart) {
    std::optional<Value> tree = parsed(R"({"a": ["a text", 1]})");
    const Value part = *tree->asObject()->find("a");
    tree.reset();
    EXPECT_EQ(print(part), R"(["a text",1])");
}

TEST(Value, StaysWhenAnotherTakesItsPlace) {
    Value value = parsed("[1, 2]");
    const Value before = value;
    value = Value("other");
    EXPECT_EQ(before, (List{1, 2}));
}

TEST(Value, SurvivesAssignmentOfItselfAndOfItsPart) {
    Value value = parsed(R"(["inner"])");
    const Value& same = value;
    value = same;
    value = (*value.asList())[0];
    EXPECT_EQ(value.asString(), "inner");
}

TEST(Value, IsReadAndCopiedOnManyThreadsAtOnce) {
    const Value value = parsed(R"({"a": [1, 2, "text"], "b": {"c": null}})");
    std::vector<std::string> printed(4);
    std::vector<std::thread> threads;
    for (std::string& mine : printed) {
        threads.emplace_back([&mine, copy = value] {
            for (int i = 0; i < 200; ++i) {
                const Value part = *Value(copy).asObject()->find("a");
                mine = print(part);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(printed, std::vector<std::string>(4, R"([1,2,"text"])"));
}

TEST(List, HoldsItsElementsInOrder) {
    const List list{1, "a", List{true}};
    EXPECT_EQ(list.size(), 3u);
    EXPECT_FALSE(list.empty());
    EXPECT_EQ(list[0], Value(1));
    EXPECT_EQ(print(list), R"([1,"a",[true]])");
}

TEST(List, IsMadeFromAVector) {
    const std::vector<Value> elements{1, 2, 3};
    EXPECT_EQ(print(List(elements)), "[1,2,3]");
    EXPECT_TRUE(List(std::vector<Value>{}).empty());
}

/// A list in a list, `levels` times, made from the innermost on.
Value nestedLists(int levels) {
    Builder builder;
    std::vector<std::size_t> begun;
    for (int i = 0; i < levels; ++i) begun.push_back(builder.begin());
    for (int i = 0; i < levels; ++i) builder.endList(begun.back());
    return builder.finish();
}

TEST(Builder, TakesAsManyLevelsAsAnyWalkStands) {
    EXPECT_EQ(print(nestedLists(1024)), std::string(1024, '[') + std::string(1024, ']'));
}

TEST(Builder, MakesNullOfALevelTooMany) { EXPECT_EQ(nestedLists(1025).kind(), Kind::null); }

TEST(Builder, MakesNullOfTheInnermostOfHostsListsThatAreNestedTooDeep) {
    Value value = List();
    for (int i = 1; i < 1024; ++i) value = List{value};
    EXPECT_NE(print(value).find("[[]]"), std::string::npos);
    EXPECT_NE(print(Value(List{value, 1})).find("[null]"), std::string::npos);
}

TEST(Builder, KeepsWhatStandsBesideALevelTooMany) {
    const Value deep = nestedLists(1024);
    Builder builder;
    const std::size_t begun = builder.begin();
    builder.name("deep");
    const std::size_t inner = builder.begin();
    builder.copy(deep.node());
    builder.endList(inner);
    builder.name("beside");
    builder.integer(1);
    builder.endObject(begun);
    const Value built = builder.finish();
    EXPECT_EQ(built.asObject()->find("beside"), Value(1));
    EXPECT_EQ(built.asObject()->find("deep")->kind(), Kind::list);
}

TEST(Builder, MakesNullOfADoubleThatIsNotFinite) {
    Builder builder;
    builder.real(std::nan(""));
    EXPECT_EQ(builder.finish().kind(), Kind::null);
}

TEST(Builder, MakesSignedIntegersOfSmallUnsignedOnes) {
    Builder builder;
    builder.unsignedInteger(7);
    EXPECT_EQ(builder.finish().asInteger(), 7);
}

}  // namespace
}  // namespace quorin::json
