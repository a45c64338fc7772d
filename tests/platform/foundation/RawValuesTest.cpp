#include "quorin/platform/foundation/RawValues.hpp"

#include <gtest/gtest.h>

#include <array>

namespace quorin::rawvalues {
namespace {

struct Colour {
    enum Case { red, green };
    constexpr Colour(Case value) : value_(value) {}
    constexpr operator Case() const { return value_; }
    static constexpr std::array<std::string_view, 2> rawValues{"Red", "GREEN"};
    Case value_;
};

TEST(RawValues, FoldAsciiLettersOnly) {
    EXPECT_EQ(lowered("AZ[`az\xc3\x84"), "az[`az\xc3\x84");
    EXPECT_EQ(lowered(std::string_view("A\0B", 3)), std::string_view("a\0b", 3));
    EXPECT_FALSE(sameFolded("\xc3\x84", "\xc3\xa4"));
    EXPECT_FALSE(sameFolded("[", "{"));
}

TEST(RawValues, AreFoundExactly) {
    EXPECT_EQ(exact<Colour>("Red"), Colour::red);
    EXPECT_FALSE(exact<Colour>("red"));
    EXPECT_FALSE(exact<Colour>(""));
}

TEST(RawValues, AreFoundInAnyLetterCase) {
    EXPECT_EQ(folded<Colour>("rED"), Colour::red);
    EXPECT_EQ(folded<Colour>("green"), Colour::green);
    EXPECT_FALSE(folded<Colour>("greens"));
}

}  // namespace
}  // namespace quorin::rawvalues
