#include "quorin/platform/json/Parse.hpp"

#include "tests/platform/json/Parsed.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quorin::json {
namespace {

using namespace std::string_view_literals;

TEST(ParseError, PointsAtThePlaceInOneLine) {
    const ParseError error = failureOf("[1, x]");
    EXPECT_EQ(error.offset, 4u);
    EXPECT_EQ(error.position, (Position{1, 5}));
}

TEST(ParseError, PointsAtThePlaceInALaterLine) {
    const ParseError error = failureOf("{\n  \"a\": 1,\n  \"b\": ?\n}");
    EXPECT_EQ(error.offset, 19u);
    EXPECT_EQ(error.position, (Position{3, 8}));
}

TEST(ParseError, CountsCharactersAndNotBytesInAColumn) {
    const ParseError error = failureOf("[\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\", ?]");
    EXPECT_EQ(error.offset, 14u);
    EXPECT_EQ(error.position, (Position{1, 9}));
}

TEST(ParseError, CountsLinesThatEndWithCarriageReturnAndNewline) {
    const ParseError error = failureOf("[\r\n1,\r\n  ?]");
    EXPECT_EQ(error.offset, 9u);
    EXPECT_EQ(error.position, (Position{3, 3}));
}

TEST(ParseError, CountsTheByteOrderMarkInTheOffsetAndNotInTheColumn) {
    const ParseError error = failureOf("\xEF\xBB\xBF[?]");
    EXPECT_EQ(error.offset, 4u);
    EXPECT_EQ(error.position, (Position{1, 2}));
}

TEST(ParseError, PointsAtTheEndOfATextThatStopsShort) {
    EXPECT_EQ(failureOf("[1,\n").offset, 4u);
    EXPECT_EQ(failureOf("[1,\n").position, (Position{2, 1}));
    EXPECT_EQ(failureOf("\"abc").offset, 4u);
    EXPECT_EQ(failureOf("").position, (Position{1, 1}));
}

TEST(ParseError, PointsAtANULByte) {
    const ParseError error = failureOf("[1,\n \0]"sv);
    EXPECT_EQ(error.offset, 5u);
    EXPECT_EQ(error.position, (Position{2, 2}));
    EXPECT_EQ(error.message, "a NUL byte stands in the text");
}

TEST(ParseError, PointsAtAByteThatIsNoUTF8) {
    const ParseError error = failureOf("[\"a\xFF\"]");
    EXPECT_EQ(error.offset, 3u);
    EXPECT_NE(error.message.find("UTF-8"), std::string::npos) << error.message;
}

TEST(ParseError, SaysWhatIsWrongWithANumber) { EXPECT_EQ(failureOf("[1e400]").message, "number overflow"); }

TEST(ParseError, SaysWhatIsMissing) {
    EXPECT_EQ(failureOf("{\"a\" 1}").message,
              "syntax error while parsing object separator - unexpected number literal; expected ':'");
    EXPECT_EQ(failureOf("[\"a\n").message.substr(0, 51), "syntax error while parsing value - invalid string: ");
}

TEST(ParseError, NeverRepeatsPiecesOfTheText) {
    for (const auto text : {"[secret]", "\"secret", "{\"a\": secret}", "{secret: 1}", "[\"secret\" \"secret\"]",
                            "[1, \"secret\\x\"]", "{\"secret\"", "[1e400secret]", "\"secret\xFF\"", "\"\\usecret\"",
                            "{\"secret\": 1 \"secret\"}", "1 secret", "[\"secret\\ud800\"]"}) {
        EXPECT_EQ(failureOf(text).message.find("secret"), std::string::npos) << failureOf(text).message;
        EXPECT_NE(failureOf(text).message, "") << text;
    }
}

TEST(ParseError, NeverRepeatsAPieceThatLooksLikeTheParsersOwnWords) {
    for (const auto text :
         {"[\"'; expected secret", "[\"; last read: 'secret'; expected secret", "{\"'; expected secret",
          "[\"] secret: '; expected secret\xFF", "[\" at line secret: secret"})
        EXPECT_EQ(failureOf(text).message.find("secret"), std::string::npos) << failureOf(text).message;
}

TEST(ParseError, NeverBearsThePieceOfAHugeNumber) {
    const std::string digits(400, '9');
    EXPECT_EQ(failureOf("[" + digits + "]").message, "number overflow");
}

TEST(ParseError, HasNoValueBesideIt) {
    const ParseResult result = parse("?");
    EXPECT_EQ(result.value(), nullptr);
    EXPECT_NE(result.error(), nullptr);
    EXPECT_EQ(parse("1").error(), nullptr);
}

}  // namespace
}  // namespace quorin::json
