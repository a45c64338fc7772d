#include "tests/platform/skell/Requests.hpp"

#include <gtest/gtest.h>

#include <future>
#include <new>

namespace quorin::skell {
namespace {

TEST(HandlerDeathTest, EndsTheProcessWhereItsMemoryEndsOnTheThreadOfTheRequests) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto receive = [] {
        const FaultServer server({{"/", answer(200, "text")}});
        std::promise<void> ended;
        Request::GET(server.url("/"))
            .response()
            .subscribe(
                {.next = [](const Response&) { throw std::bad_alloc(); }, .completed = [&] { ended.set_value(); }});
        ended.get_future().wait();
    };
    EXPECT_DEATH(receive(), "bad_alloc");
}

}  // namespace
}  // namespace quorin::skell
