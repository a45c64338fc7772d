#include "tests/platform/skell/Requests.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <latch>
#include <string>

namespace quorin::skell {
namespace {

constexpr unsigned hangGuard = 30;  // seconds, after which a process that does not end is killed

/// Each test is a process of its own, begun anew: nothing has made a request in it before.
class Exit : public testing::Test {
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    /// A server that lives on while the process exits, and answers nothing but "/answered".
    static const FaultServer& stalling() {
        static const FaultServer& server = *new FaultServer([](const ReceivedRequest& request, Connection& connection) {
            if (request.target == "/answered") return static_cast<void>(connection.send(answer(200)));
            for (;;) pause();
        });
        return server;
    }

    /// Begins a request that is never answered and reports what comes of it.
    static rx::Disposable beginOne() {
        alarm(hangGuard);
        const auto subscription =
            Request::GET(stalling().url("/stalled")).response().subscribe([](const rx::Event<Response>& event) {
                if (event.error()) std::cerr << event.error()->description();
            });
        stalling().waitForRequests(1);
        return subscription;
    }
};

constexpr const char* told = "SkellError cancelled: the process is exiting";

TEST_F(Exit, CancelsWhatIsUnderWay) {
    EXPECT_EXIT(
        {
            beginOne();
            std::exit(7);
        },
        testing::ExitedWithCode(7), told);
}

TEST_F(Exit, InsideAHandlerCancelsWhatIsUnderWay) {
    EXPECT_EXIT(
        {
            beginOne();
            Request::GET(stalling().url("/answered")).response().subscribe({.next = [](const Response&) {
                std::exit(8);
            }});
            for (;;) pause();
        },
        testing::ExitedWithCode(8), told);
}

TEST_F(Exit, DoesNotWaitForAHandlerThatNeverReturns) {
    EXPECT_EXIT(
        {
            beginOne();
            static std::latch& entered = *new std::latch(1);
            Request::GET(stalling().url("/answered")).response().subscribe({.next = [](const Response&) {
                entered.count_down();
                for (;;) pause();
            }});
            entered.wait();
            std::exit(9);
        },
        testing::ExitedWithCode(9), "");
}

TEST_F(Exit, LeavesAHandlerInPeaceThatReturnsTooLate) {
    EXPECT_EXIT(
        {
            alarm(hangGuard);
            static std::latch& entered = *new std::latch(1);
            static std::latch& leaving = *new std::latch(1);
            std::atexit([] { leaving.count_down(); });  // runs after the library has given up waiting
            Request::GET(stalling().url("/answered"))
                .response()
                .subscribe({.next =
                                [](const Response&) {
                                    entered.count_down();
                                    leaving.wait();
                                },
                            .completed = [] { std::cerr << "completed"; }});
            entered.wait();
            std::exit(10);
        },
        testing::ExitedWithCode(10), "");
}

TEST_F(Exit, CancelsWhatIsBegunAfterwards) {
    EXPECT_EXIT(
        {
            std::atexit([] { std::cerr << failureOf(performed(stalling().url("/answered"))).message; });
            beginOne();
            std::exit(11);
        },
        testing::ExitedWithCode(11), "exiting.*exiting");
}

TEST_F(Exit, LeavesTheSubscriberAloneThatHasLeft) {
    EXPECT_EXIT(
        {
            beginOne().dispose();
            std::exit(12);
        },
        testing::ExitedWithCode(12), "^$");
}

TEST_F(Exit, EndsQuietlyWithConnectionsKept) {
    EXPECT_EXIT(
        {
            alarm(hangGuard);
            std::exit(performed(stalling().url("/answered")) ? 13 : 1);
        },
        testing::ExitedWithCode(13), "^$");
}

}  // namespace
}  // namespace quorin::skell
