#include "quorin/platform/morr/MorrStandard.hpp"

#include "tests/platform/morr/RawDatabase.hpp"
#include "tests/platform/morr/StoreTesting.hpp"
#include "tests/support/Child.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace quorin::morr {
namespace {

using support::Child;
using support::inChild;
using support::TemporaryFolder;

/// Puts the numbers from 0 under "k", and copies of them under "copy", telling of each when it is on the disk.
void count(const std::string& path, int end, const Child::Say& say) {
    MorrStandard store({.path = path});
    for (int i = 0; i < end; ++i) {
        store.put(std::to_string(i), "k");
        say(std::to_string(i));
        store.put(std::to_string(i), "copy" + std::to_string(i));
    }
}

TEST(StoreProcess, KilledKeepsAllThatWasPut) {
    for (const int killedAt : {0, 57, 299}) {
        const TemporaryFolder folder;
        const std::string path = folder.file("s.db");
        Child child([&](const Child::Say& say) { count(path, 100000, say); });
        std::string last;
        while (last != std::to_string(killedAt)) last = child.line();
        child.kill();
        for (std::string line = child.line(); !line.empty(); line = child.line()) last = line;
        EXPECT_FALSE(child.finish());

        MorrStandard store({.path = path});
        EXPECT_GE(std::stoi(text(store, "k")), std::stoi(last));
        for (int i = 0; i < std::stoi(last); ++i) EXPECT_EQ(text(store, "copy" + std::to_string(i)), std::to_string(i));
        EXPECT_EQ(store.status().kind, Kind::open);
        EXPECT_EQ(runSQL(path, "PRAGMA integrity_check"), "ok");
    }
}

TEST(StoreProcess, KilledInItsFirstUseLeavesAFileThatWorks) {
    const TemporaryFolder folder;
    for (int i = 0; i < 12; ++i) {
        const std::string path = folder.file(std::to_string(i));
        Child child([&](const Child::Say& say) {
            say("begun");
            count(path, 100000, [](const std::string&) {});
        });
        EXPECT_EQ(child.line(), "begun");
        for (int spin = 0; spin < i && !std::filesystem::exists(path); ++spin) std::this_thread::yield();
        child.kill();
        child.finish();
        MorrStandard store({.path = path});
        store.put("v", "mine");
        EXPECT_EQ(store.status().kind, Kind::open) << store.status().message;
        EXPECT_EQ(textIn(path, "mine"), "v");
    }
}

TEST(StoreProcess, WritesBesideAnother) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    const auto work = [&path](const std::string& own) {
        return [&path, own](const Child::Say& say) {
            MorrStandard store({.path = path});
            for (int i = 0; i < 100; ++i) {
                store.put(own + std::to_string(i), "shared");
                store.put(i, own);
            }
            say(std::to_string(static_cast<int>(store.status().kind)));
        };
    };
    Child first(work("a"));
    Child second(work("b"));
    const std::string open = std::to_string(static_cast<int>(Kind::open));
    EXPECT_EQ(first.line(), open);
    EXPECT_EQ(second.line(), open);
    MorrStandard store({.path = path});
    EXPECT_EQ(store.get("a"), StoredValue(std::int64_t{99}));
    EXPECT_EQ(store.get("b"), StoredValue(std::int64_t{99}));
    EXPECT_THAT(text(store, "shared"), testing::AnyOf("a99", "b99"));
}

TEST(StoreProcess, OpensANewFileBesideOthers) {
    const TemporaryFolder folder;
    for (int round = 0; round < 10; ++round) {
        const std::string path = folder.file(std::to_string(round) + "/s.db");
        std::vector<std::unique_ptr<Child>> children;
        for (int i = 0; i < 5; ++i) {
            children.push_back(std::make_unique<Child>([&path, i](const Child::Say& say) {
                MorrStandard store({.path = path});
                store.put("v", std::to_string(i));
                say(std::to_string(static_cast<int>(store.status().kind)) + store.status().message);
            }));
        }
        for (const auto& child : children) EXPECT_EQ(child->line(), std::to_string(static_cast<int>(Kind::open)));
        EXPECT_EQ(MorrStandard({.path = path}).all().size(), 5U);
    }
}

TEST(StoreProcess, WaitsForOneThatHoldsTheFile) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    MorrStandard({.path = path}).put("old", "k");
    sqlite3* holder = nullptr;
    sqlite3_open(path.c_str(), &holder);
    sqlite3_exec(holder, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    {
        MorrStandard store({.path = path});
        EXPECT_EQ(text(store, "k"), "old");
        store.put("old", "k");
        std::thread release([&] { sqlite3_exec(holder, "COMMIT", nullptr, nullptr, nullptr); });
        store.put("new", "k");
        release.join();
        EXPECT_EQ(store.status().kind, Kind::open);
    }
    sqlite3_close(holder);
    EXPECT_EQ(textIn(path, "k"), "new");
}

TEST(StoreProcess, SeesWhatAnotherHasPut) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    EXPECT_EQ(inChild([&] { return MorrStandard({.path = path}).put("theirs", "k"), std::string("put"); }), "put");
    MorrStandard store({.path = path});
    EXPECT_EQ(text(store, "k"), "theirs");
}

}  // namespace
}  // namespace quorin::morr
