#include "quorin/platform/json/Repeated.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorin::json {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RepeatedMembers, AreNamedOnceEach) {
    EXPECT_THAT(repeatedMembers(R"({"a": 1, "b": 2, "a": 3, "a": 4})"), ElementsAre("/a"));
}

TEST(RepeatedMembers, AreThoseOfOneObject) {
    EXPECT_THAT(repeatedMembers(R"({"a": {"b": 1}, "c": {"b": 1}, "b": [{"b": 1}, {"b": 2}]})"), IsEmpty());
}

TEST(RepeatedMembers, AreFoundAtAnyDepth) {
    EXPECT_THAT(repeatedMembers(R"({"a": [0, {"b/c": {"d": 1, "d": 2}}]})"), ElementsAre("/a/1/b~1c/d"));
}

TEST(RepeatedMembers, AreComparedAsTheyRead) {
    EXPECT_THAT(repeatedMembers("\xEF\xBB\xBF{\"a\": 1, \"\\u0061\": 2, \"\": 3, \"\": {}}"), ElementsAre("/a", "/"));
}

TEST(RepeatedMembers, AreNoneInOtherValues) {
    for (const char* const text : {"{}", "[]", " [ ] ", "1", "\"{\\\"a\\\":1,\\\"a\\\":2}\"", "null"})
        EXPECT_THAT(repeatedMembers(text), IsEmpty()) << text;
}

TEST(RepeatedMembers, AreNoMoreThanAnybodyReads) {
    std::string text = "{";
    for (int i = 0; i < 20'000; ++i) text += "\"" + std::to_string(i) + "\":1,\"" + std::to_string(i) + "\":2,";
    EXPECT_EQ(repeatedMembers(text + "\"a\":1}").size(), 10'000U);
}

}  // namespace
}  // namespace quorin::json
