#include "quorin/platform/json/Pointer.hpp"
#include "quorin/platform/json/Position.hpp"

#include "tests/platform/json/AnyValue.hpp"
#include "tests/platform/json/Parsed.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quorin::json {
namespace {

std::optional<Position> positionIn(std::string_view text, const std::string& pointer) {
    return positionsOf(text, {pointer}).at(0);
}

TEST(Position, CountsLinesAndColumnsFromOne) {
    EXPECT_EQ(positionOf("abc\ndef", 0), (Position{1, 1}));
    EXPECT_EQ(positionOf("abc\ndef", 2), (Position{1, 3}));
    EXPECT_EQ(positionOf("abc\ndef", 4), (Position{2, 1}));
    EXPECT_EQ(positionOf("abc\ndef", 7), (Position{2, 4}));
}

TEST(Position, CountsCharactersInAColumn) { EXPECT_EQ(positionOf("\xC3\xA9\xF0\x9F\x98\x80x", 6), (Position{1, 3})); }

TEST(Position, DoesNotCountAByteOrderMark) { EXPECT_EQ(positionOf("\xEF\xBB\xBF{}", 3), (Position{1, 1})); }

TEST(PositionsOf, FindTheWholeText) { EXPECT_EQ(positionIn("\n  {}", ""), (Position{2, 3})); }

TEST(PositionsOf, FindMembersAndElements) {
    const std::string text = "{\n  \"a\": [1, {\"b\": true}],\n  \"c\": \"x\"\n}";
    EXPECT_EQ(positionIn(text, "/a"), (Position{2, 8}));
    EXPECT_EQ(positionIn(text, "/a/0"), (Position{2, 9}));
    EXPECT_EQ(positionIn(text, "/a/1/b"), (Position{2, 18}));
    EXPECT_EQ(positionIn(text, "/c"), (Position{3, 8}));
}

TEST(PositionsOf, AreEmptyForWhatIsNotThere) {
    const std::string text = R"({"a": [1, 2], "b": "x"})";
    for (const auto pointer : {"/c", "/a/2", "/a/-", "/a/00", "/a/x", "/b/0", "/a/0/0", "/", "//"})
        EXPECT_EQ(positionIn(text, pointer), std::nullopt) << pointer;
}

TEST(PositionsOf, FindEscapedNames) {
    const std::string text = R"({"a\/b": 1, "~": 2, "\u0061": 3, "\"": 4, "": 5, "~1": 6})";
    EXPECT_EQ(positionIn(text, "/a~1b"), (Position{1, 10}));
    EXPECT_EQ(positionIn(text, "/~0"), (Position{1, 18}));
    EXPECT_EQ(positionIn(text, "/a"), (Position{1, 31}));
    EXPECT_EQ(positionIn(text, "/\""), (Position{1, 40}));
    EXPECT_EQ(positionIn(text, "/"), (Position{1, 47}));
    EXPECT_EQ(positionIn(text, "/~01"), (Position{1, 56}));
}

TEST(PositionsOf, FindTheLastOfTwoMembersOfOneName) {
    EXPECT_EQ(positionIn(R"({"a": 1, "a": 2})", "/a"), (Position{1, 15}));
    EXPECT_EQ(positionIn(R"({"a": {"b": 1}, "a": {"b": 2}})", "/a/b"), (Position{1, 28}));
}

TEST(PositionsOf, AreEmptyForWhatStoodInAReplacedMemberOnly) {
    EXPECT_EQ(positionIn(R"({"a": {"b": 1}, "a": {"c": 2}})", "/a/b"), std::nullopt);
    EXPECT_EQ(positionIn(R"({"a": {"b": [1]}, "a": 2})", "/a/b/0"), std::nullopt);
    EXPECT_EQ(positionIn(R"({"a": {"b": [1]}, "a": {"b": []}})", "/a/b/0"), std::nullopt);
}

TEST(PositionsOf, SkipAByteOrderMark) {
    EXPECT_EQ(positionIn("\xEF\xBB\xBF{\"a\": 1}", "/a"), (Position{1, 7}));
    EXPECT_EQ(positionIn("\xEF\xBB\xBF{\n\"a\": 1}", "/a"), (Position{2, 6}));
}

TEST(PositionsOf, CountCharactersInAColumn) {
    EXPECT_EQ(positionIn("{\"\xC3\xA9\": \"\xE2\x82\xAC\", \"a\": 1}", "/a"), (Position{1, 17}));
}

TEST(PositionsOf, AreNotMisledByBracketsInTexts) {
    EXPECT_EQ(positionIn(R"({"x": "]}\"{[\\", "y": ["]", "}"], "a": 1})", "/a"), (Position{1, 41}));
}

TEST(PositionsOf, AreNotMisledByEscapesInTexts) {
    const std::string text = R"({"a": ["\\", "\"]", "\\\"}", "\\\\"], "b": 1})";
    EXPECT_EQ(positionIn(text, "/a/3"), (Position{1, 30}));
    EXPECT_EQ(positionIn(text, "/b"), (Position{1, 44}));
}

TEST(PositionsOf, AreInTheOrderOfThePointers) {
    const std::vector<std::optional<Position>> expected{Position{1, 15}, std::nullopt, Position{1, 7}, Position{1, 15}};
    EXPECT_EQ(positionsOf(R"({"a": 1, "b": 2})", {"/b", "/x", "/a", "/b"}), expected);
    EXPECT_TRUE(positionsOf("{}", {}).empty());
}

TEST(PositionsOf, FindManyPointersInOnePass) {
    std::string text = "[";
    std::vector<std::string> pointers;
    for (int i = 0; i < 10'000; ++i) {
        text += (i > 0 ? ",\n{\"a\": " : "{\"a\": ") + std::to_string(i) + "}";
        pointers.push_back("/" + std::to_string(i) + "/a");
    }
    const auto positions = positionsOf(text + "]", pointers);
    EXPECT_EQ(positions.at(0), (Position{1, 8}));
    for (std::size_t i = 1; i < positions.size(); ++i) ASSERT_EQ(positions[i], (Position{i + 1, 7}));
}

TEST(PositionsOf, FindScalarsAtTheTop) {
    EXPECT_EQ(positionIn(" 18446744073709551616 ", ""), (Position{1, 2}));
    EXPECT_EQ(positionIn("true", "/a"), std::nullopt);
}

std::size_t offsetOf(std::string_view text, Position position) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (positionOf(text, i) == position) return i;
    }
    return text.size();
}

RC_GTEST_PROP(PositionsOf, PointAtTheBeginOfEachMember, ()) {
    const Members members =
        *rc::gen::resize(6, rc::gen::container<Members>(rc::gen::pair(anyText(), rc::gen::arbitrary<Value>())));
    const DocumentMap map = *objectOf(members).asObject();
    const std::string text = print(map, *rc::gen::element(Layout::compact, Layout::indented));
    for (const auto& [name, value] : map) {
        std::string pointer;
        appendStep(pointer, name);
        const auto position = positionIn(text, pointer);
        RC_ASSERT(position);
        const char begin = text.at(offsetOf(text, *position));
        RC_ASSERT(begin == print(value).at(0));
    }
}

TEST(Positions, AreEmptyForAPointerDeeperThanAnyText) {
    EXPECT_EQ(positionsOf("{}", {std::string(2'000'000, '/')})[0], std::nullopt);
}

}  // namespace
}  // namespace quorin::json
