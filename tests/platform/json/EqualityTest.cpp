#include "quorin/platform/json/Value.hpp"

#include "tests/platform/json/Parsed.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace quorin::json {
namespace {

TEST(Equality, HoldsBetweenOneAndTrue) {
    EXPECT_EQ(Value(1), Value(true));
    EXPECT_EQ(Value(true), Value(1.0));
    EXPECT_EQ(parsed("[1, 1.0, 1e0]"), parsed("[true, true, true]"));
    EXPECT_NE(Value(true), Value(2));
}

TEST(Equality, HoldsBetweenTheZeros) {
    EXPECT_EQ(Value(0), Value(false));
    EXPECT_EQ(Value(false), Value(-0.0));
    EXPECT_EQ(Value(0.0), Value(-0.0));
    EXPECT_NE(Value(false), Value(true));
    EXPECT_NE(Value(0), Value(nullptr));
    EXPECT_NE(Value(false), Value(nullptr));
}

TEST(Equality, TellsAnIntegerFromTheDoubleNextToIt) {
    EXPECT_NE(Value(9007199254740993), Value(9007199254740992.0));
    EXPECT_EQ(Value(9007199254740992), Value(9007199254740992.0));
    EXPECT_NE(Value(9007199254740992.0), Value(9007199254740993));
    EXPECT_NE(Value(std::numeric_limits<Integer>::max()), Value(9223372036854775808.0));
}

TEST(Equality, ComparesUnsignedIntegersWithDoublesExactly) {
    const Value big(std::uint64_t{1} << 63U);
    EXPECT_EQ(big, Value(9223372036854775808.0));
    EXPECT_NE(Value((std::uint64_t{1} << 63U) + 1), Value(9223372036854775808.0));
    EXPECT_NE(Value(std::numeric_limits<std::uint64_t>::max()), Value(18446744073709551616.0));
    EXPECT_NE(big, Value(-9223372036854775808.0));
}

TEST(Equality, TellsSignedFromUnsignedIntegersOfTheSameBits) {
    EXPECT_NE(Value(std::numeric_limits<Integer>::min()), Value(std::uint64_t{1} << 63U));
    EXPECT_NE(Value(-1), Value(std::numeric_limits<std::uint64_t>::max()));
    EXPECT_EQ(Value(std::numeric_limits<Integer>::min()), Value(-9223372036854775808.0));
}

TEST(Equality, DoesNotDependOnTheTypeANumberWasMadeFrom) {
    EXPECT_EQ(Value(7), Value(7U));
    EXPECT_EQ(Value(std::uint64_t{7}), Value(std::int8_t{7}));
    EXPECT_EQ(Value(std::uint64_t{7}).kind(), Kind::integer);
}

TEST(Equality, TellsFractionsFromWholeNumbers) {
    EXPECT_NE(Value(1.5), Value(1));
    EXPECT_NE(Value(0.5), Value(true));
    EXPECT_NE(Value(1e300), Value(1));
    EXPECT_EQ(Value(0.1), Value(0.1));
}

TEST(Equality, NeverHoldsBetweenANumberAndAText) {
    EXPECT_NE(Value("1"), Value(1));
    EXPECT_NE(Value("true"), Value(true));
    EXPECT_NE(Value(""), Value(nullptr));
    EXPECT_NE(Value(""), Value(0));
}

TEST(Equality, ComparesTextsByBytes) {
    EXPECT_EQ(Value("a"), Value(std::string("a")));
    EXPECT_NE(Value("a"), Value("A"));
    EXPECT_NE(Value("\xC3\xA9"), Value("e\xCC\x81"));
    EXPECT_NE(Value(std::string_view("a\0b", 3)), Value("a"));
}

TEST(Equality, ComparesListsElementByElement) {
    EXPECT_EQ(parsed("[1, [2, \"a\"]]"), parsed("[true, [2.0, \"a\"]]"));
    EXPECT_NE(parsed("[1, 2]"), parsed("[2, 1]"));
    EXPECT_NE(parsed("[1]"), parsed("[1, 1]"));
    EXPECT_NE(parsed("[]"), parsed("{}"));
    EXPECT_EQ(List(), *parsed("[]").asList());
}

TEST(Equality, ComparesObjectsWhateverTheirOrder) {
    EXPECT_EQ(parsed(R"({"a": 1, "b": {"c": 2, "d": 3}})"), parsed(R"({"b": {"d": 3, "c": 2}, "a": true})"));
    EXPECT_NE(parsed(R"({"a": 1, "b": 2})"), parsed(R"({"a": 2, "b": 1})"));
    EXPECT_NE(parsed(R"({"a": 1})"), parsed(R"({"b": 1})"));
    EXPECT_NE(parsed(R"({"a": 1})"), parsed(R"({"a": 1, "b": null})"));
    EXPECT_EQ(DocumentMap(), *parsed("{}").asObject());
}

std::string thousandMembers(bool backwards, int different = -1) {
    std::string text = "{";
    for (int i = 0; i < 1000; ++i) {
        const int name = backwards ? 999 - i : i;
        text += (i > 0 ? ",\"k" : "\"k") + std::to_string(name) + "\":" + std::to_string(name == different ? -1 : name);
    }
    return text + "}";
}

TEST(Equality, ComparesLargeObjectsWhateverTheirOrder) {
    EXPECT_EQ(parsed(thousandMembers(false)), parsed(thousandMembers(true)));
    EXPECT_NE(parsed(thousandMembers(false)), parsed(thousandMembers(true, 500)));
}

TEST(Equality, HoldsBetweenDeepTrees) {
    const auto nested = [](std::string_view inside) {
        return parsed(std::string(500, '[') + std::string(inside) + std::string(500, ']'));
    };
    EXPECT_EQ(nested("1"), nested("true"));
    EXPECT_NE(nested("1"), nested("2"));
    EXPECT_NE(nested("[]"), nested("[[]]"));
}

TEST(Equality, HoldsBetweenNulls) { EXPECT_EQ(Value(), parsed("null")); }

}  // namespace
}  // namespace quorin::json
