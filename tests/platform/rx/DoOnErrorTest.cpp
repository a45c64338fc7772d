#include "quorin/platform/rx/DoOnError.hpp"
#include "quorin/platform/rx/Just.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <new>

namespace quorin::rx {
namespace {

TEST(DoOnError, TellsTheFunctionBeforeTheSubscriber) {
    Log log;
    doOnError(error<int>(Broken{3}), [&](const Error& error) {
        log.push_back(error.description());
    }).subscribe(into(log, "a"));
    EXPECT_EQ(log, (Log{"broken 3", "a!"}));
}

TEST(DoOnError, PassesValuesAndTheEndOn) {
    Log log;
    doOnError(just(4), [&](const Error& error) { log.push_back(error.description()); }).subscribe(into(log, "a"));
    EXPECT_EQ(log, (Log{"a4", "a."}));
}

TEST(DoOnError, PassesTheErrorOnWhereTheFunctionHasNoMemory) {
    Log log;
    doOnError(error<int>(Broken{3}), [](const Error&) { throw std::bad_alloc(); }).subscribe(into(log, "a"));
    EXPECT_EQ(log, (Log{"a!"}));
}

}  // namespace
}  // namespace quorin::rx
