#include "tests/platform/morr/StoreTesting.hpp"
#include "tests/support/Child.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

namespace quorin::morr {
namespace {

using support::inChild;
using support::limitFiles;
using support::TemporaryFolder;

bool isSizeSignalPending() {
    sigset_t pending{};
    return sigpending(&pending) == 0 && sigismember(&pending, SIGXFSZ) == 1;
}

void blockSizeSignal() {
    sigset_t alone{};
    sigemptyset(&alone);
    sigaddset(&alone, SIGXFSZ);
    pthread_sigmask(SIG_BLOCK, &alone, nullptr);
}

/// A put that meets the limit; true when it failed, and its value is there all the same.
bool meetsTheLimit(const std::string& path) {
    limitFiles(100000);
    MorrStandard store({.path = path});
    store.put(std::string(200000, 'v'), "k");
    return text(store, "k").size() == 200000 && store.status().kind == Kind::writeFailed;
}

// The signal's default is to end the process, which no test here changes.
TEST(SizeLimit, EndsNoProcess) {
    const TemporaryFolder folder;
    EXPECT_EQ(inChild([&] { return std::string(meetsTheLimit(folder.file("s.db")) ? "lives" : "wrote"); }), "lives");
}

TEST(SizeLimit, EndsNoProcessThatClosesItsStore) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    const std::string said = inChild([&] {
        {
            MorrStandard store({.path = path});
            store.put(std::string(200000, 'v'), "k");
            limitFiles(10000);
        }
        return std::string("lives");
    });
    EXPECT_EQ(said, "lives");
    EXPECT_EQ(textIn(path, "k").size(), 200000U);
}

TEST(SizeLimit, LeavesNoSignalToAHostThatBlocksIt) {
    const TemporaryFolder folder;
    const std::string said = inChild([&] {
        blockSizeSignal();
        const bool isMet = meetsTheLimit(folder.file("s.db"));
        return std::string(isMet && !isSizeSignalPending() ? "none" : "pending");
    });
    EXPECT_EQ(said, "none");
}

TEST(SizeLimit, LeavesTheSignalOfOthersPending) {
    const TemporaryFolder folder;
    const std::string said = inChild([&] {
        blockSizeSignal();
        raise(SIGXFSZ);
        const bool isMet = meetsTheLimit(folder.file("s.db"));
        return std::string(isMet && isSizeSignalPending() ? "pending" : "none");
    });
    EXPECT_EQ(said, "pending");
}

TEST(SizeLimit, StaysTheHostsForItsOwnFiles) {
    const TemporaryFolder folder;
    support::Child child([&](const support::Child::Say& say) {
        say(meetsTheLimit(folder.file("s.db")) ? "met" : "wrote");
        const int code = truncate(folder.write("own", "x").c_str(), 200000);
        say("lives after " + std::to_string(code));
    });
    EXPECT_EQ(child.line(), "met");
    EXPECT_EQ(child.line(), "");
    EXPECT_FALSE(child.finish());
}

}  // namespace
}  // namespace quorin::morr
