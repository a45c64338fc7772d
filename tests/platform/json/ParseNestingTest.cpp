#include "quorin/platform/json/Parse.hpp"

#include "tests/platform/json/Parsed.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin::json {
namespace {

std::string repeated(std::string_view piece, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
}

std::string lists(std::size_t levels, std::string_view inside = "") {
    return repeated("[", levels).append(inside) + repeated("]", levels);
}
std::string objects(std::size_t levels, std::string_view inside = "0") {
    return repeated("{\"a\":", levels).append(inside) + repeated("}", levels);
}
std::string mixed(std::size_t pairs, std::string_view inside) {
    return repeated("[{\"a\":", pairs).append(inside) + repeated("}]", pairs);
}

constexpr std::string_view beyond = "18446744073709551616";

TEST(ParseNesting, Takes512Levels) {
    EXPECT_EQ(print(parsed(lists(512))), lists(512));
    EXPECT_EQ(print(parsed(objects(512))), objects(512));
    EXPECT_EQ(print(parsed(mixed(256, "1"))), mixed(256, "1"));
}

TEST(ParseNesting, Takes512LevelsOnTheSecondPath) {
    EXPECT_EQ(print(parsed(lists(512, beyond))), lists(512, beyond));
    EXPECT_EQ(print(parsed(objects(512, beyond))), objects(512, beyond));
    EXPECT_EQ(print(parsed(mixed(256, beyond))), mixed(256, beyond));
}

TEST(ParseNesting, Refuses513Levels) {
    EXPECT_TRUE(fails(lists(513)));
    EXPECT_TRUE(fails(objects(513)));
    EXPECT_TRUE(fails(mixed(256, "[]")));
    EXPECT_TRUE(fails(mixed(256, "{}")));
    EXPECT_TRUE(fails(lists(513, beyond)));
    EXPECT_TRUE(fails(objects(513, beyond)));
}

TEST(ParseNesting, CountsLevelsAndNotBrackets) {
    EXPECT_FALSE(fails("[" + repeated("[[]],{\"a\":[]},", 1000) + "[]]"));
    EXPECT_FALSE(fails("[\"" + repeated("[{", 1000) + "\"]"));
    EXPECT_FALSE(fails("[" + repeated("[],", 1000) + std::string(beyond) + "]"));
}

TEST(ParseNesting, PointsAtTheLevelTooDeep) {
    const ParseError error = failureOf("[\"\\\"[[\", " + lists(512) + "]");
    EXPECT_EQ(error.offset, 9u + 511u);
    EXPECT_EQ(error.position, (Position{1, 521}));
    EXPECT_EQ(error.message, "lists and objects are nested deeper than 512 levels");
}

TEST(ParseNesting, RefusesAHundredThousandLevels) {
    EXPECT_TRUE(fails(lists(100'000)));
    EXPECT_TRUE(fails(objects(100'000)));
    EXPECT_TRUE(fails(repeated("[", 100'000)));
    EXPECT_TRUE(fails(repeated("{\"a\":", 100'000)));
    EXPECT_TRUE(fails(mixed(50'000, beyond)));
}

}  // namespace
}  // namespace quorin::json
