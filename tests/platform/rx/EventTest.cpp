#include "quorin/platform/rx/Event.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

namespace quorin::rx {
namespace {

TEST(Event, OfAValueIsNoEnd) {
    const auto event = Event<int>::next(4);
    ASSERT_NE(event.value(), nullptr);
    EXPECT_EQ(*event.value(), 4);
    EXPECT_EQ(event.error(), nullptr);
    EXPECT_FALSE(event.isCompleted());
    EXPECT_FALSE(event.isTerminal());
}

TEST(Event, OfAnErrorIsAnEnd) {
    const auto event = Event<int>::failed(Broken{4});
    EXPECT_EQ(event.value(), nullptr);
    ASSERT_NE(event.error(), nullptr);
    EXPECT_EQ(event.error()->as<Broken>()->code, 4);
    EXPECT_FALSE(event.isCompleted());
    EXPECT_TRUE(event.isTerminal());
}

TEST(Event, OfCompletionIsAnEnd) {
    const auto event = Event<int>::completed();
    EXPECT_EQ(event.value(), nullptr);
    EXPECT_EQ(event.error(), nullptr);
    EXPECT_TRUE(event.isCompleted());
    EXPECT_TRUE(event.isTerminal());
}

TEST(Event, TellsAnErrorAsAValueFromAFailure) {
    EXPECT_EQ(Event<Error>::next(Broken{4}).error(), nullptr);
    EXPECT_EQ(Event<Error>::failed(Broken{4}).value(), nullptr);
}

}  // namespace
}  // namespace quorin::rx
