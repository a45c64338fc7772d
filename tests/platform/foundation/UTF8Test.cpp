#include "quorin/platform/foundation/UTF8.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace quorin::foundation {
namespace {

TEST(UTF8, HasCharactersOfOneToFourBytes) {
    EXPECT_EQ(firstCharacter("a!"), (Character{U'a', 1}));
    EXPECT_EQ(firstCharacter(std::string_view("\0", 1)), (Character{0, 1}));
    EXPECT_EQ(firstCharacter("\xC2\x80!"), (Character{0x80, 2}));
    EXPECT_EQ(firstCharacter("\xE0\xA0\x80!"), (Character{0x800, 3}));
    EXPECT_EQ(firstCharacter("\xEF\xBF\xBF"), (Character{0xFFFF, 3}));
    EXPECT_EQ(firstCharacter("\xF0\x90\x80\x80!"), (Character{0x10000, 4}));
    EXPECT_EQ(firstCharacter("\xF4\x8F\xBF\xBF"), (Character{0x10FFFF, 4}));
}

TEST(UTF8, HasNoCharacterInAnEmptyOrBrokenText) {
    for (const std::string_view text : {"", "\x80", "\xBF", "\xC3", "\xC3(", "\xE2\x82", "\xE2(\xAC", "\xF0\x9F\x98",
                                        "\xF0\x9F\x98(", "\xF8\x88\x80\x80\x80", "\xFE", "\xFF"}) {
        EXPECT_EQ(firstCharacter(text), std::nullopt) << testing::PrintToString(text);
    }
}

TEST(UTF8, HasNoOverlongFormSurrogateOrCodeBeyondUnicode) {
    for (const std::string_view text : {"\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80",
                                        "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF7\xBF\xBF\xBF"}) {
        EXPECT_EQ(firstCharacter(text), std::nullopt) << testing::PrintToString(text);
    }
    EXPECT_EQ(firstCharacter("\xED\x9F\xBF"), (Character{0xD7FF, 3}));
    EXPECT_EQ(firstCharacter("\xEE\x80\x80"), (Character{0xE000, 3}));
}

}  // namespace
}  // namespace quorin::foundation
