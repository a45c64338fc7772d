#include "quorin/platform/rx/Just.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

namespace quorin::rx {
namespace {

TEST(Just, DeliversItsValueAndCompletes) {
    Log log;
    just(4).subscribe(into(log, "a"));
    EXPECT_EQ(log, (Log{"a4", "a."}));
}

TEST(Just, DoesSoForEverySubscriber) {
    Log log;
    const Observable<int> stream = just(4);
    stream.subscribe(into(log, "a"));
    stream.subscribe(into(log, "b"));
    EXPECT_EQ(log, (Log{"a4", "a.", "b4", "b."}));
}

TEST(ErrorStream, FailsAtOnce) {
    int code = 0;
    error<int>(Broken{6}).subscribe({.next = [](int) { FAIL() << "no value expected"; },
                                     .error = [&](const Error& failure) { code = failure.as<Broken>()->code; },
                                     .completed = [] { FAIL() << "no completion expected"; }});
    EXPECT_EQ(code, 6);
}

}  // namespace
}  // namespace quorin::rx
