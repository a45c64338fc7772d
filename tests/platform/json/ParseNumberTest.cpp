#include "quorin/platform/json/Parse.hpp"

#include "tests/platform/json/Parsed.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace quorin::json {
namespace {

void expectReal(std::string_view text, double expected) {
    for (const Value& value : {parsed(text), parsedOnSecondPath(text)}) {
        ASSERT_EQ(value.kind(), Kind::real) << text;
        EXPECT_EQ(value.asReal(), expected) << text;
    }
}

TEST(ParseNumber, KeepsSignedIntegersExactly) {
    for (const std::int64_t number :
         {std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::min() + 1, std::int64_t{-1},
          std::int64_t{0}, std::int64_t{9007199254740993}, std::numeric_limits<Integer>::max()}) {
        EXPECT_EQ(parsed(std::to_string(number)).asInteger(), number);
        EXPECT_EQ(parsedOnSecondPath(std::to_string(number)).asInteger(), number);
    }
}

TEST(ParseNumber, KeepsIntegersBeyondTheSignedOnesExactly) {
    for (const std::uint64_t number : {std::uint64_t{9223372036854775808U}, std::uint64_t{18446744073709551614U},
                                       std::numeric_limits<std::uint64_t>::max()}) {
        EXPECT_EQ(parsed(std::to_string(number)).asUnsigned(), number);
        EXPECT_EQ(parsedOnSecondPath(std::to_string(number)).asUnsigned(), number);
    }
}

TEST(ParseNumber, GivesNoIntegerForAnUnsignedOne) { EXPECT_FALSE(parsed("9223372036854775808").asInteger()); }

TEST(ParseNumber, MakesDoublesOfIntegersBeyond64Bits) {
    expectReal("18446744073709551616", 18446744073709551616.0);
    expectReal("-9223372036854775809", -9223372036854775808.0);
    expectReal("123456789012345678901234567890", 1.2345678901234568e29);
}

TEST(ParseNumber, MakesDoublesOfFractionsAndExponents) {
    expectReal("1.0", 1.0);
    expectReal("1e0", 1.0);
    expectReal("-2.5E+3", -2500.0);
    expectReal("0.1", 0.1);
    expectReal("1.7976931348623157e308", std::numeric_limits<double>::max());
    expectReal("5e-324", std::numeric_limits<double>::denorm_min());
}

TEST(ParseNumber, RoundsToTheNearestDouble) {
    expectReal("9007199254740993.0", 9007199254740992.0);
    expectReal("2.2250738585072011e-308", 2.2250738585072011e-308);
    expectReal("0.500000000000000166533453693773481063544750213623046875", 0.50000000000000022);
}

TEST(ParseNumber, RefusesNumbersBeyondDoubles) {
    for (const std::string text : {"1e400", "-1e400", "1.7976931348623159e308", "1e99999999999999999999", "[1, 1e400]",
                                   "[18446744073709551616, 1e400]", "{\"a\": -1E+400}"})
        EXPECT_TRUE(fails(text)) << text;
    EXPECT_TRUE(fails(std::string(400, '9')));
}

TEST(ParseNumber, MakesZeroOfWhatIsSmallerThanAnyDouble) {
    expectReal("1e-400", 0.0);
    expectReal("-1e-400", 0.0);
    expectReal("0e999999999999999999999", 0.0);
}

TEST(ParseNumber, RefusesOtherSpellings) {
    for (const auto text : {"01", "-01", "00", "+1", ".5", "1.", "-", "--1", "1e", "1e+", "1.e1", "0x1", "1_000", "1,5",
                            "- 1", "1.5.5", "1e5.5"})
        EXPECT_TRUE(fails(text)) << text;
}

TEST(ParseNumber, ReadsNegativeZeroAsZero) {
    EXPECT_EQ(parsed("-0"), Value(0));
    EXPECT_EQ(parsed("-0.0"), Value(0));
    EXPECT_EQ(parsedOnSecondPath("-0"), Value(0));
}

}  // namespace
}  // namespace quorin::json
