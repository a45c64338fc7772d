#include "quorin/platform/rx/Map.hpp"

#include "tests/platform/skell/Requests.hpp"

#include <gtest/gtest.h>
#include <signal.h>

#include <string>

namespace quorin::skell {
namespace {

/// Whether the thread on which responses are delivered holds a signal back.
bool isHeldBack(int signal) {
    const FaultServer server({{"/", answer(200)}});
    const auto blocked = rx::wait(rx::map(Request::GET(server.url("/")).response(), [signal](const Response&) {
        sigset_t mask{};
        pthread_sigmask(SIG_SETMASK, nullptr, &mask);
        return sigismember(&mask, signal) == 1;
    }));
    return *blocked;
}

TEST(Signals, OfTheHostComeToThreadsOfTheHost) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGCHLD, SIGALRM, SIGUSR1, SIGPIPE})
        EXPECT_TRUE(isHeldBack(signal)) << signal;
}

TEST(Signals, OfFaultsAreHeldBackNowhere) {
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) EXPECT_FALSE(isHeldBack(signal)) << signal;
}

}  // namespace
}  // namespace quorin::skell
