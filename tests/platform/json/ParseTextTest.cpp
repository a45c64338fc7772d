#include "quorin/platform/json/Parse.hpp"

#include "tests/platform/json/Parsed.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin::json {
namespace {

TEST(ParseText, KeepsUTF8AsItStands) {
    const std::string text = "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF\x7F";
    EXPECT_EQ(parsed('"' + text + '"').asString(), text);
    EXPECT_EQ(parsedOnSecondPath('"' + text + '"').asString(), text);
    EXPECT_TRUE(parsedOnSecondPath("{\"" + text + "\": 1}").asObject()->contains(text));
}

TEST(ParseText, RefusesInvalidUTF8) {
    for (const auto bytes :
         {"\xFF", "\x80", "\xC3", "\xC3(", "\xE2\x82", "\xC0\x80", "\xC1\xBF", "\xE0\x80\xAF", "\xF0\x80\x80\x80",
          "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xED\xA0\x80", "\xED\xBF\xBF"}) {
        EXPECT_TRUE(fails('"' + std::string(bytes) + '"')) << bytes;
        EXPECT_TRUE(fails("{\"" + std::string(bytes) + "\": 1}")) << bytes;
        EXPECT_TRUE(fails("[18446744073709551616, \"" + std::string(bytes) + "\"]")) << bytes;
        EXPECT_TRUE(fails("[1] " + std::string(bytes))) << bytes;
    }
}

TEST(ParseText, JoinsSurrogatePairs) {
    for (const auto text : {R"("\ud83d\ude00")", R"("\uD83D\uDE00")"}) {
        EXPECT_EQ(parsed(text).asString(), "\xF0\x9F\x98\x80");
        EXPECT_EQ(parsedOnSecondPath(text).asString(), "\xF0\x9F\x98\x80");
    }
}

TEST(ParseText, JoinsTheFirstAndTheLastSurrogatePair) {
    expectReads(R"("\ud800\udc00 \udbff\udfff")", "\"\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF\"");
}

TEST(ParseText, RefusesALoneHighSurrogate) {
    for (const auto text :
         {R"("\ud800")", R"("\udbff")", R"("\ud800 ")", R"("\ud83dx")", R"("a\uD83D\n")", R"("\ud800\\udc00")"})
        EXPECT_TRUE(fails(text)) << text;
}

TEST(ParseText, RefusesALoneLowSurrogate) {
    for (const auto text : {R"("\udc00")", R"("\udfff")", R"("a\uDE00b")", R"("\ud83d\ude00\ude00")"})
        EXPECT_TRUE(fails(text)) << text;
}

TEST(ParseText, RefusesAHighSurrogateBehindAHighOne) {
    for (const auto text : {R"("\ud800\ud800")", R"("\ud83d\ud83d\ude00")", R"("\udbff\udbff")"})
        EXPECT_TRUE(fails(text)) << text;
}

TEST(ParseText, RefusesAHighSurrogateBeforeAnotherCharacter) {
    for (const auto text : {R"("\ud800\u0041")", R"("\ud800\ue000")", R"("\ud83d\u0000")", R"("\ud83d\u00")"})
        EXPECT_TRUE(fails(text)) << text;
}

TEST(ParseText, RefusesLoneSurrogatesInNames) {
    EXPECT_TRUE(fails(R"({"\ud800": 1})"));
    EXPECT_TRUE(fails(R"({"\udc00": 1})"));
}

TEST(ParseText, RefusesLoneSurrogatesBesideNumbersBeyond64Bits) {
    EXPECT_TRUE(fails(R"([18446744073709551616, "\ud800"])"));
    EXPECT_TRUE(fails(R"([18446744073709551616, "\udc00\ud800"])"));
}

TEST(ParseText, KeepsEscapedNoncharactersAndControls) {
    expectReads(R"("\uffff\ufffe\u001f\u007f")", "\"\xEF\xBF\xBF\xEF\xBF\xBE\\u001f\x7F\"");
}

}  // namespace
}  // namespace quorin::json
