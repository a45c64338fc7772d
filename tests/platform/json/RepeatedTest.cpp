#include "quorin/platform/json/Repeated.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorin::json {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> pointersIn(std::string_view text) { return repeatedMembers(text).pointers; }

TEST(RepeatedMembers, AreNamedOnceEach) {
    EXPECT_THAT(pointersIn(R"({"a": 1, "b": 2, "a": 3, "a": 4})"), ElementsAre("/a"));
}

TEST(RepeatedMembers, AreThoseOfOneObject) {
    EXPECT_THAT(pointersIn(R"({"a": {"b": 1}, "c": {"b": 1}, "b": [{"b": 1}, {"b": 2}]})"), IsEmpty());
}

TEST(RepeatedMembers, AreFoundAtAnyDepth) {
    EXPECT_THAT(pointersIn(R"({"a": [0, {"b/c": {"d": 1, "d": 2}}]})"), ElementsAre("/a/1/b~1c/d"));
}

TEST(RepeatedMembers, AreComparedAsTheyRead) {
    EXPECT_THAT(pointersIn("\xEF\xBB\xBF{\"a\": 1, \"\\u0061\": 2, \"\": 3, \"\": {}}"), ElementsAre("/a", "/"));
}

TEST(RepeatedMembers, AreNoneInOtherValues) {
    for (const char* const text : {"{}", "[]", " [ ] ", "1", "\"{\\\"a\\\":1,\\\"a\\\":2}\"", "null"})
        EXPECT_THAT(pointersIn(text), IsEmpty()) << text;
}

TEST(RepeatedMembers, AreNoMoreThanAnybodyReads) {
    std::string text = "{";
    for (int i = 0; i < 20'000; ++i) text += "\"" + std::to_string(i) + "\":1,\"" + std::to_string(i) + "\":2,";
    const Repeated repeated = repeatedMembers(text + "\"a\":1}");
    EXPECT_EQ(repeated.pointers.size(), 10'000U);
    EXPECT_EQ(repeated.omitted, 10'000U);
}

}  // namespace
}  // namespace quorin::json
