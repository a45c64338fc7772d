#include "quorin/platform/json/Print.hpp"

#include "tests/platform/json/AnyValue.hpp"
#include "tests/platform/json/Parsed.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace quorin::json {
namespace {

TEST(Print, WritesScalars) {
    EXPECT_EQ(print(nullptr), "null");
    EXPECT_EQ(print(true), "true");
    EXPECT_EQ(print(false), "false");
    EXPECT_EQ(print("a"), R"("a")");
    EXPECT_EQ(print(""), R"("")");
}

TEST(Print, WritesIntegersWithAllDigits) {
    EXPECT_EQ(print(std::numeric_limits<Integer>::min()), "-9223372036854775808");
    EXPECT_EQ(print(std::numeric_limits<Integer>::max()), "9223372036854775807");
    EXPECT_EQ(print(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
    EXPECT_EQ(print(9007199254740993), "9007199254740993");
}

TEST(Print, WritesWholeDoublesBelow2To53AsIntegers) {
    EXPECT_EQ(print(1.0), "1");
    EXPECT_EQ(print(-0.0), "0");
    EXPECT_EQ(print(1e15), "1000000000000000");
    EXPECT_EQ(print(-9007199254740991.0), "-9007199254740991");
}

TEST(Print, WritesOtherDoublesInTheirShortestForm) {
    EXPECT_EQ(print(0.1), "0.1");
    EXPECT_EQ(print(-2.5), "-2.5");
    EXPECT_EQ(print(1e21), "1e+21");
    EXPECT_EQ(print(1e-7), "1e-07");
    EXPECT_EQ(print(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
    EXPECT_EQ(print(5e-324), "5e-324");
}

TEST(Print, SortsMembersByTheBytesOfTheirNames) {
    EXPECT_EQ(print(parsed(R"({"b": 1, "a": 2, "B": 3, "é": 4, "": 5, "aa": 6})")),
              R"({"":5,"B":3,"a":2,"aa":6,"b":1,"é":4})");
}

TEST(Print, SortsMembersOfLargeObjects) {
    std::string text = "{";
    for (int i = 99; i >= 10; --i) text += "\"" + std::to_string(i) + "\":" + std::to_string(i) + (i > 10 ? "," : "}");
    std::string sorted = "{";
    for (int i = 10; i <= 99; ++i)
        sorted += "\"" + std::to_string(i) + "\":" + std::to_string(i) + (i < 99 ? "," : "}");
    EXPECT_EQ(print(parsed(text)), sorted);
}

TEST(Print, EscapesWhatMustBeEscapedAndNothingElse) {
    EXPECT_EQ(print("\"\\\b\f\n\r\t"), R"("\"\\\b\f\n\r\t")");
    EXPECT_EQ(print(std::string("\x00\x01\x0b\x1f", 4)), "\"\\u0000\\u0001\\u000b\\u001f\"");
    EXPECT_EQ(print("/\x7F'<>&\xC3\xA9\xE2\x80\xA8\xF0\x9F\x98\x80"),
              "\"/\x7F'<>&\xC3\xA9\xE2\x80\xA8\xF0\x9F\x98\x80\"");
}

TEST(Print, EscapesNamesToo) { EXPECT_EQ(print(DocumentMap{{"a\n\"", 1}}), "{\"a\\n\\\"\":1}"); }

TEST(Print, ReplacesBytesThatAreNotUTF8) {
    EXPECT_EQ(print("a\xFFz"), "\"a\xEF\xBF\xBDz\"");
    EXPECT_EQ(print("\xC3\xA9\xC3"), "\"\xC3\xA9\xEF\xBF\xBD\"");
    EXPECT_EQ(print("\xED\xA0\x80"), "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"");
    EXPECT_EQ(print(DocumentMap{{"\x80", 1}}), "{\"\xEF\xBF\xBD\":1}");
}

TEST(Print, WritesEmptyListsAndObjectsWithoutBlanks) {
    EXPECT_EQ(print(List{}), "[]");
    EXPECT_EQ(print(DocumentMap{}), "{}");
    EXPECT_EQ(print(List{}, Layout::indented), "[]");
    EXPECT_EQ(print(DocumentMap{{"a", DocumentMap{}}, {"b", List{}}}, Layout::indented),
              "{\n  \"a\": {},\n  \"b\": []\n}");
}

TEST(Print, IndentsByTwoBlanksALevel) {
    EXPECT_EQ(print(parsed(R"({"b": [1, {"c": null}], "a": "x"})"), Layout::indented), R"({
  "a": "x",
  "b": [
    1,
    {
      "c": null
    }
  ]
})");
}

TEST(Print, WritesCompactTextOnOneLine) {
    EXPECT_EQ(print(parsed("{\"a\": [1, 2],\n \"b\": {\"c\": 3}}")), R"({"a":[1,2],"b":{"c":3}})");
}

RC_GTEST_PROP(Print, ReadsBackEqual, (const Value& value)) {
    const auto compact = parse(print(value));
    RC_ASSERT(compact && *compact.value() == value);
    const auto indented = parse(print(value, Layout::indented));
    RC_ASSERT(indented && *indented.value() == value);
}

RC_GTEST_PROP(Print, ReadsBackEqualOnTheSecondPath, (const Value& value)) {
    const auto list = parse("[" + print(value) + ",18446744073709551616]");
    RC_ASSERT(list && (*list.value()->asList())[0] == value);
}

RC_GTEST_PROP(Print, IsTheSameForWhatWasReadBack, (const Value& value)) {
    const std::string text = print(value, Layout::indented);
    RC_ASSERT(print(*parse(text).value(), Layout::indented) == text);
}

}  // namespace
}  // namespace quorin::json
