#include "quorin/platform/foundation/PlainText.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin::foundation {
namespace {

TEST(PlainText, IsTheTextWhereThatIsPlain) {
    EXPECT_EQ(plainText(""), "");
    EXPECT_EQ(plainText("a ~ \xC2\xA0 \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80"),
              "a ~ \xC2\xA0 \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80");
}

TEST(PlainText, HasABlankForAControlCharacter) {
    EXPECT_EQ(plainText(std::string("a\0b\n\r\t\x1B[2J\x1F\x7F!", 13)), "a b    [2J  !");
    EXPECT_EQ(plainText("\xC2\x80|\xC2\x9B"
                        "2J|\xC2\x9F"),
              " | 2J| ");
}

TEST(PlainText, HasAReplacementForWhatIsNotUTF8) {
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(plainText("a\xFF\x9B"
                        "b\xC3"),
              "a" + replacement + replacement + "b" + replacement);
    EXPECT_EQ(plainText("\xC0\x9B"), replacement + replacement);
    EXPECT_EQ(plainText("\xC2\x1B"), replacement + " ");
}

}  // namespace
}  // namespace quorin::foundation
