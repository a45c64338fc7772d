#include "quorin/platform/json/Parse.hpp"

#include "tests/platform/json/Parsed.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace quorin::json {
namespace {

using namespace std::string_view_literals;

TEST(Parse, ReadsEveryKindOfValue) {
    expectReads(R"([null, true, false, 1, 1.5, "a", [], {}])", R"([null,true,false,1,1.5,"a",[],{}])");
}

TEST(Parse, ReadsScalarsAtTheTop) {
    EXPECT_EQ(parsed("null").kind(), Kind::null);
    EXPECT_EQ(parsed("true").asBoolean(), true);
    EXPECT_EQ(parsed("-7").asInteger(), -7);
    EXPECT_EQ(parsed("0.5").asReal(), 0.5);
    EXPECT_EQ(parsed(R"("text")").asString(), "text");
    EXPECT_EQ(parsed("18446744073709551616").asReal(), 18446744073709551616.0);
}

TEST(Parse, SkipsBlanksAroundTokens) {
    expectReads(" \t\r\n{ \"a\" : [ 1 , 2 ] } \n", R"({"a":[1,2]})");
    EXPECT_EQ(print(parsed(" \t\r\n 1 \r\n")), "1");
}

TEST(Parse, SkipsAByteOrderMark) {
    EXPECT_EQ(print(parsed("\xEF\xBB\xBF{\"a\":1}")), R"({"a":1})");
    EXPECT_EQ(parsed("\xEF\xBB\xBF 18446744073709551616").kind(), Kind::real);
}

TEST(Parse, RefusesASecondByteOrderMark) {
    EXPECT_TRUE(fails("\xEF\xBB\xBF\xEF\xBB\xBF{}"));
    EXPECT_TRUE(fails("\xEF\xBB\xBF\xEF\xBB\xBF[18446744073709551616]"));
}

TEST(Parse, RefusesAByteOrderMarkElsewhere) {
    for (const auto text : {" \xEF\xBB\xBF{}", "{}\xEF\xBB\xBF", "[\xEF\xBB\xBF]", "\xEF\xBB\xBF", "\xEF\xBB", "\xEF"})
        EXPECT_TRUE(fails(text)) << text;
}

TEST(Parse, RefusesARawNULByteWhereverItStands) {
    for (const auto text :
         {"\0001"sv, "1\0"sv, "true\0"sv, "{}\0"sv, "[1\0]"sv, "[1 \0, 2]"sv, "\"a\0b\""sv, "\"a\"\0"sv,
          "{\"a\0\": 1}"sv, "\0"sv, "18446744073709551616\0"sv, "[18446744073709551616]\0 x"sv})
        EXPECT_TRUE(fails(text)) << testing::PrintToString(text);
}

TEST(Parse, TakesAnEscapedNUL) { EXPECT_EQ(parsed(R"("a\u0000b")").asString(), "a\0b"sv); }

TEST(Parse, RefusesATextWithoutAValue) {
    for (const auto text : {"", " ", "\n\t \r", "\xEF\xBB\xBF "}) EXPECT_TRUE(fails(text)) << text;
}

TEST(Parse, RefusesAnythingBehindTheValue) {
    for (const auto text : {"1 1", "{}{}", "[] ,", "[]]", "{}}", "null x", "\"a\" \"b\"", "18446744073709551616 1",
                            "{} //", "1\v", "1\f", "1\xC2\xA0"})
        EXPECT_TRUE(fails(text)) << text;
}

TEST(Parse, RefusesTextsThatAreNearlyJSON) {
    for (const auto text :
         {"[1,]",      "{\"a\":1,}", "[,1]", "[1 2]", "{\"a\" 1}", "{\"a\":}", "{a:1}",   "{'a':1}",   "{1:1}",
          "[1}",       "{]",         "[",    "{",     "{\"a\"",    "\"a",      "\"\\x\"", "\"\\u12\"", "\"\\u12g4\"",
          "\"a\nb\"",  "\"a\tb\"",   "tru",  "True",  "NULL",      "nulls",    "NaN",     "Infinity",  "-Infinity",
          "undefined", "/**/1",      "#1",   "]",     ",",         ":",        "\"\\"})
        EXPECT_TRUE(fails(text)) << text;
}

TEST(Parse, ReadsEveryEscape) {
    expectReads(R"("\"\\\/\b\f\n\r\t\u0041\u00e9\u20AC")", "\"\\\"\\\\/\\b\\f\\n\\r\\tA\xC3\xA9\xE2\x82\xAC\"");
}

TEST(Parse, TakesTheLastOfTwoMembersOfOneName) { expectReads(R"({"a": 1, "b": 2, "a": 3})", R"({"a":3,"b":2})"); }

TEST(Parse, TakesTheLastOfThreeMembersOfOneName) {
    expectReads(R"({"a": 1, "a": {"x": 1}, "b": 0, "a": [3]})", R"({"a":[3],"b":0})");
}

TEST(Parse, ComparesMembersByTheirUnescapedNames) { expectReads(R"({"a": 1, "\u0061": 2})", R"({"a":2})"); }

TEST(Parse, CountsAMemberOfADoubledNameOnce) { EXPECT_EQ(parsed(R"({"a": 1, "a": 2})").asObject()->size(), 1u); }

TEST(Parse, TakesTheLastOfTwoMembersInALargeObject) {
    std::string members;
    for (int i = 0; i < 20; ++i) members += "\"k" + std::to_string(i) + "\": " + std::to_string(i) + ", ";
    const std::string text = "{" + members + R"("k3": "second", "k19": "last", "k3": "third"})";
    for (const Value& value : {parsed(text), parsedOnSecondPath(text)}) {
        const DocumentMap map = *value.asObject();
        EXPECT_EQ(map.size(), 20u);
        EXPECT_EQ(map.find("k3"), Value("third"));
        EXPECT_EQ(map.find("k19"), Value("last"));
        EXPECT_EQ(map.find("k4"), Value(4));
    }
}

TEST(Parse, TakesTheLastOfTwoMembersAtTheEdgeOfIndexing) {
    for (const int count : {15, 16, 17, 18}) {
        std::string text = R"({"a": 0)";
        for (int i = 1; i < count; ++i) text += ", \"k" + std::to_string(i) + "\": 0";
        const DocumentMap map = *parsed(text + R"(, "a": 1})").asObject();
        EXPECT_EQ(map.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(map.find("a"), Value(1)) << count;
    }
}

TEST(Parse, KeepsEmptyNames) { expectReads(R"({"": 1, "a": {"": ""}})", R"({"":1,"a":{"":""}})"); }

TEST(Parse, KeepsMembersInDocumentOrder) {
    std::string names;
    const DocumentMap map = *parsed(R"({"z": 1, "a": 2, "m": 3})").asObject();
    for (const auto& [name, value] : map) names += name;
    EXPECT_EQ(names, "zam");
}

/// The text in memory that ends with exactly `spare` readable bytes behind it.
ParseResult parseWithSpare(std::string_view text, std::size_t spare) {
    const std::unique_ptr<char[]> memory(new char[text.size() + spare]);
    std::copy(text.begin(), text.end(), memory.get());
    std::fill(memory.get() + text.size(), memory.get() + text.size() + spare, '7');
    return parse({memory.get(), text.size()}, spare);
}

TEST(Parse, ReadsNothingBehindATextWithoutSpareBytes) {
    for (const auto text : {"1", "[12]", "\"abc\"", "{\"a\": tru", "18446744073709551616", "\xEF\xBB\xBF[1]"})
        EXPECT_EQ(static_cast<bool>(parseWithSpare(text, 0)), static_cast<bool>(parse(text))) << text;
}

TEST(Parse, TakesTheValueAloneWhateverStandsInTheSpareBytes) {
    for (const std::size_t spare : {std::size_t{1}, std::size_t{63}, parsePadding, std::size_t{100}}) {
        const ParseResult number = parseWithSpare("12", spare);
        ASSERT_TRUE(number);
        EXPECT_EQ(*number.value(), Value(12)) << spare;
        EXPECT_FALSE(parseWithSpare("[1", spare)) << spare;
        EXPECT_TRUE(parseWithSpare("\xEF\xBB\xBF{\"a\": [1]}", spare)) << spare;
    }
}

TEST(Parse, GivesValuesThatOutliveTheText) {
    auto text = std::make_unique<std::string>(R"({"name": "a text that is long enough to need memory of its own"})");
    const Value value = parsed(*text);
    text->assign(text->size(), '#');
    text.reset();
    EXPECT_EQ(value.asObject()->find("name")->asString(), "a text that is long enough to need memory of its own");
}

TEST(Parse, ReadsALargeTextAndThenASmallOne) {
    std::string large = "[0";
    for (int i = 1; i < 100'000; ++i) large += ", " + std::to_string(i);
    const Value list = parsed(large + "]");
    EXPECT_EQ(list.asList()->size(), 100'000u);
    EXPECT_EQ((*list.asList())[99'999], Value(99'999));
    EXPECT_EQ(parsed("[1]"), (List{1}));
}

TEST(Parse, ReadsOnManyThreadsAtOnce) {
    std::vector<std::string> printed(4);
    std::vector<std::thread> threads;
    for (std::string& mine : printed) {
        threads.emplace_back([&mine] {
            for (int i = 0; i < 100; ++i) mine = print(*parse(R"({"a": [1, "b", {"c": null}]})").value());
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(printed, std::vector<std::string>(4, R"({"a":[1,"b",{"c":null}]})"));
}

}  // namespace
}  // namespace quorin::json
