// Whatever operation of the file system fails, and whenever the power goes, a store holds the value from before or the
// new one, and tells the truth about it.
#include "quorin/platform/morr/MorrStandard.hpp"

#include "tests/faults/FaultyVFS.hpp"
#include "tests/platform/morr/StoreTesting.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>

namespace quorin::morr {
namespace {

namespace fs = std::filesystem;

using faults::FaultyVFS;
using faults::Operation;
using support::TemporaryFolder;

const std::string none = "(none)";

/// Longer than a page of the file.
std::string large(char c) { return std::string(10'000, c); }

/// What is done to a store, and what stands under "k" before and after.
struct Story {
    const char* name;
    std::string before;
    std::string after;
    void (*run)(MorrStandard& store);
};

void PrintTo(const Story& story, std::ostream* out) { *out << story.name; }

const Story stories[] = {
    {"first start", none, "made",
     [](MorrStandard& store) {
         store.all();
         store.putIfAbsent("made", "k");
         store.putIfAbsent("made", "copy");
     }},
    {"put", "old", "new", [](MorrStandard& store) { store.put("new", "k"); }},
    {"large put", large('o'), large('n'), [](MorrStandard& store) { store.put(large('n'), "k"); }},
    {"remove", "old", none, [](MorrStandard& store) { store.remove("k"); }},
    {"large remove", large('o'), none, [](MorrStandard& store) { store.remove("k"); }},
};

class StoreWithFaults : public testing::TestWithParam<Story> {
protected:
    /// A file as the story finds it.
    static void prepare(const std::string& path) {
        if (GetParam().before == none) return;
        MorrStandard store({.path = path});
        for (const char* other : {"a", "z"}) store.put(large('x'), other);
        store.put(GetParam().before, "k");
    }

    /// The story, told to a store of its own that is closed then. Whether the store says that all is in the file.
    static bool run(const std::string& path) {
        MorrStandard store({.path = path});
        GetParam().run(store);
        const bool isSaid = store.status().kind == Kind::open;
        const std::string seen = text(store, "k");  // from memory at least, or it says that it cannot be read
        EXPECT_TRUE(seen == GetParam().after || store.status().kind == Kind::unavailable) << seen.substr(0, 20);
        return isSaid;
    }

    /// The store is sound, holds what it should, and goes on working.
    static void expectSound(const std::string& folder, bool isSaid) {
        const std::string path = folder + "/s.db";
        MorrStandard store({.path = path});
        const std::string held = text(store, "k");
        EXPECT_TRUE(held == GetParam().after || (!isSaid && held == GetParam().before)) << held.substr(0, 20);
        EXPECT_EQ(text(store, "z") == large('x'), GetParam().before != none);
        store.put("later", "k");
        EXPECT_EQ(store.status().kind, Kind::open) << store.status().message;
        EXPECT_EQ(namesWith(folder, "damaged"), std::vector<std::string>{});
    }

    FaultyVFS vfs_{};
};

TEST_P(StoreWithFaults, HoldsTheOldOrTheNewValueWhateverFails) {
    long failures = 0;
    for (const Operation operation : faults::operations) {
        for (const bool forGood : {false, true}) {
            for (long count = 0;; ++count) {
                SCOPED_TRACE(testing::Message() << faults::nameOf(operation) << ' ' << count << (forGood ? "..." : ""));
                const TemporaryFolder folder;
                prepare(folder.file("s.db"));
                vfs_.failAfter(operation, count, forGood);
                const bool isSaid = run(folder.file("s.db"));
                const bool hasFailed = vfs_.stopFailing();
                expectSound(folder.path(), isSaid);
                if (!hasFailed) break;
                ++failures;
            }
        }
    }
    EXPECT_GT(failures, 20);
}

/// Writes what stands on the disk after the loss into a folder of its own.
void materialise(const faults::Disk& disk, std::uint32_t seed, const TemporaryFolder& folder) {
    for (const auto& [path, content] : disk.afterPowerLoss(seed))
        folder.write(fs::path(path).filename().string(), content);
}

TEST_P(StoreWithFaults, HoldsTheOldOrTheNewValueWhenThePowerGoes) {
    constexpr std::uint32_t seeds = 200;  // for each of the stories
    const TemporaryFolder prepared;
    prepare(prepared.file("s.db"));
    long changes = 0, losses = 0;
    for (std::uint32_t seed = 0; seed < seeds; ++seed) {
        SCOPED_TRACE(seed);
        const TemporaryFolder before;
        const TemporaryFolder after;
        if (GetParam().before != none) fs::copy(prepared.file("s.db"), before.file("s.db"));
        vfs_.disk.clear();
        vfs_.powerOffAfter(changes);
        const bool isSaid = run(before.file("s.db"));
        const bool isOff = vfs_.stopFailing();
        materialise(vfs_.disk, seed, after);
        expectSound(after.path(), isSaid);
        changes = isOff ? changes + 1 : 0;  // at every moment in turn
        losses += isOff ? 1 : 0;
    }
    EXPECT_GT(losses, seeds / 2);
}

INSTANTIATE_TEST_SUITE_P(Of, StoreWithFaults, testing::ValuesIn(stories), [](const auto& story) {
    std::string name = story.param.name;
    for (char& c : name) c = c == ' ' ? '_' : c;
    return name;
});

}  // namespace
}  // namespace quorin::morr
