#include "quorin/platform/json/Pointer.hpp"
#include "quorin/platform/json/UTF8.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorin::json {
namespace {

std::string stepTo(std::string_view name) {
    std::string pointer = "/around";
    appendStep(pointer, name);
    return pointer;
}

TEST(Pointer, GrowsByOneStep) {
    EXPECT_EQ(stepTo("a"), "/around/a");
    EXPECT_EQ(stepTo(""), "/around/");
}

TEST(Pointer, EscapesTildesAndSlashes) {
    EXPECT_EQ(stepTo("~"), "/around/~0");
    EXPECT_EQ(stepTo("a/b"), "/around/a~1b");
    EXPECT_EQ(stepTo("~1/~0"), "/around/~01~1~00");
}

TEST(Pointer, FallsIntoItsSteps) {
    EXPECT_EQ(stepsOf(""), std::vector<std::string>{});
    EXPECT_EQ(stepsOf("/"), std::vector<std::string>{""});
    EXPECT_EQ(stepsOf("/a/0//b"), (std::vector<std::string>{"a", "0", "", "b"}));
}

TEST(Pointer, UnescapesItsSteps) {
    EXPECT_EQ(stepsOf("/~0/~1/~01/a~1b"), (std::vector<std::string>{"~", "/", "~1", "a/b"}));
}

TEST(UTF8, IsRecognised) {
    for (const auto text : {"", "a", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(isUTF8(text)) << text;
    for (const auto text : {"\x80", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF", "a\xE2\x82z"})
        EXPECT_FALSE(isUTF8(text)) << text;
}

TEST(UTF8, IsRepairedByteByByte) {
    EXPECT_EQ(repairedUTF8("a\xE2\x82z"), "a\xEF\xBF\xBD\xEF\xBF\xBDz");
    EXPECT_EQ(repairedUTF8("\xFF\xC3\xA9"), "\xEF\xBF\xBD\xC3\xA9");
    EXPECT_EQ(repairedUTF8("fine"), "fine");
}

}  // namespace
}  // namespace quorin::json
