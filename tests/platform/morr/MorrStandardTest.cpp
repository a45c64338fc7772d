#include "quorin/platform/morr/MorrStandard.hpp"

#include "tests/platform/morr/RawDatabase.hpp"
#include "tests/platform/morr/StoreTesting.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>

namespace quorin::morr {
namespace {

using support::contentOf;
using support::TemporaryFolder;

const std::vector<StoredValue> everyKind{
    std::int64_t{0},
    std::numeric_limits<std::int64_t>::min(),
    std::numeric_limits<std::int64_t>::max(),
    0.0,
    -0.0,
    1.0,
    0.1,
    std::numeric_limits<double>::infinity(),
    std::numeric_limits<double>::denorm_min(),
    "",
    "it's \"quoted\"; DROP TABLE entries; --",
    std::string("a\0b\0", 4),
    "\xf0\x9f\x8e\xac \xc3\xa4",
    "\xff\xfe\x80 broken",
    "12",
    std::string(1 << 20, 'm'),
    std::vector<std::byte>{},
    std::vector<std::byte>{std::byte{0}, std::byte{255}},
};

TEST(MorrStandard, GivesEveryValueBackAsItWas) {
    const TemporaryFolder folder;
    for (const StoredValue& value : everyKind) {
        MorrStandard({.path = folder.file("s.db")}).put(value, "k");
        const auto back = MorrStandard({.path = folder.file("s.db")}).get("k");
        ASSERT_TRUE(back);
        EXPECT_TRUE(isSame(*back, value)) << value.index();
    }
}

TEST(MorrStandard, GivesANumberThatIsNoneBack) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    store.put(std::nan(""), "k");
    EXPECT_TRUE(std::isnan(std::get<double>(*store.get("k"))));
}

TEST(MorrStandard, StoresBooleansAsIntegers) {
    MorrStandard store({});
    store.put(true, "k");
    EXPECT_EQ(store.get("k"), StoredValue(std::int64_t{1}));
}

TEST(MorrStandard, TellsKeysApartByTheirBytes) {
    const TemporaryFolder folder;
    const std::vector<std::string> keys{"", "a", "A", std::string("a\0", 2), std::string("a\0b", 3), "\xff", "'"};
    MorrStandard store({.path = folder.file("s.db")});
    for (const std::string& key : keys) store.put(key + "!", key);
    for (const std::string& key : keys) EXPECT_EQ(textIn(folder.file("s.db"), key), key + "!");
    EXPECT_EQ(store.all().size(), keys.size());
}

TEST(MorrStandard, HasNothingUnderAnUnknownOrRemovedKey) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    EXPECT_EQ(store.get("k"), std::nullopt);
    store.put("v", "k");
    store.remove("k");
    store.remove("never there");
    EXPECT_EQ(store.get("k"), std::nullopt);
    EXPECT_EQ(textIn(folder.file("s.db"), "k"), "(none)");
}

TEST(MorrStandard, PutsAValueWhereThereIsNone) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    EXPECT_EQ(store.putIfAbsent("first", "k"), StoredValue("first"));
    EXPECT_EQ(store.putIfAbsent("second", "k"), StoredValue("first"));
    EXPECT_EQ(textIn(folder.file("s.db"), "k"), "first");
    EXPECT_EQ(store.status(), (Status{Kind::open, ""}));
}

TEST(MorrStandard, PutsAValueWhereThereIsOneOfAnotherType) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    store.put(7, "k");
    EXPECT_EQ(store.putIfAbsent("text", "k"), StoredValue("text"));
    EXPECT_EQ(textIn(folder.file("s.db"), "k"), "text");
}

TEST(MorrStandard, PutsAValueWhereThereIsNoneInMemoryToo) {
    MorrStandard store({});
    EXPECT_EQ(store.putIfAbsent("first", "k"), StoredValue("first"));
    EXPECT_EQ(store.putIfAbsent("second", "k"), StoredValue("first"));
    store.remove("k");
    EXPECT_EQ(store.putIfAbsent("third", "k"), StoredValue("third"));
}

TEST(MorrStandard, YieldsAllValuesAtOnce) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    EXPECT_EQ(store.all(), StoredValues{});
    store.put("x", "b");
    store.put(7, "a");
    store.put("old", "b");
    EXPECT_EQ(store.all(), (StoredValues{{"a", std::int64_t{7}}, {"b", "old"}}));
}

TEST(MorrStandard, ReplacesAValueByOneOfAnotherType) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    store.put("1", "k");
    store.put(1, "k");
    EXPECT_EQ(store.get("k"), StoredValue(std::int64_t{1}));
    store.put(1.0, "k");
    EXPECT_EQ(store.get("k"), StoredValue(1.0));
}

TEST(MorrStandard, IsOpenedByItsFirstUseOnly) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    EXPECT_EQ(store.status(), (Status{Kind::notOpened, ""}));
    EXPECT_FALSE(std::filesystem::exists(folder.file("s.db")));
    store.get("k");
    EXPECT_EQ(store.status(), (Status{Kind::open, ""}));
    EXPECT_TRUE(std::filesystem::exists(folder.file("s.db")));
}

TEST(MorrStandard, LeavesNothingBesideItsFileWhenClosed) {
    const TemporaryFolder folder;
    MorrStandard({.path = folder.file("s.db")}).put("v", "k");
    EXPECT_EQ(namesWith(folder.path(), ""), std::vector<std::string>{"s.db"});
}

TEST(MorrStandard, KeepsNothingInMemory) {
    MorrStandard store({.path = ":memory:"});
    store.put("v", "k");
    EXPECT_EQ(text(store, "k"), "v");
    EXPECT_EQ(store.all(), (StoredValues{{"k", "v"}}));
    EXPECT_EQ(store.status(), (Status{Kind::memory, ""}));
    EXPECT_FALSE(std::filesystem::exists(":memory:"));
    MorrStandard other({.path = ":memory:"});
    EXPECT_EQ(text(other, "k"), "(none)");
}

TEST(MorrStandard, WritesNothingWhereTheFileHoldsAnEqualValue) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    for (const StoredValue& value : everyKind) {
        store.put(value, "k");
        const std::string journal = contentOf(folder.file("s.db-wal"));
        store.put(value, "k");
        store.remove("absent");
        EXPECT_TRUE(contentOf(folder.file("s.db-wal")) == journal) << value.index();
    }
}

TEST(MorrStandard, LeavesTheFileAsItIsOverAStartThatChangesNothing) {
    const TemporaryFolder folder;
    MorrStandard({.path = folder.file("s.db")}).put("v", "k");
    const std::string before = contentOf(folder.file("s.db"));
    const auto written = std::filesystem::last_write_time(folder.file("s.db"));
    MorrStandard({.path = folder.file("s.db")}).put("v", "k");
    EXPECT_TRUE(contentOf(folder.file("s.db")) == before);
    EXPECT_EQ(std::filesystem::last_write_time(folder.file("s.db")), written);
}

TEST(MorrStandard, ComparesWithTheFileAndNotWithWhatItPutThere) {
    const TemporaryFolder folder;
    MorrStandard first({.path = folder.file("s.db")});
    MorrStandard second({.path = folder.file("s.db")});
    first.put("a", "k");
    second.put("b", "k");
    EXPECT_EQ(text(first, "k"), "b");
    first.put("a", "k");
    EXPECT_EQ(text(second, "k"), "a");
}

TEST(MorrStandard, WritesADatabaseThatOtherProgramsRead) {
    const TemporaryFolder folder;
    MorrStandard({.path = folder.file("s.db")}).put("v", "k");
    EXPECT_EQ(runSQL(folder.file("s.db"), "PRAGMA journal_mode"), "wal");
    EXPECT_EQ(runSQL(folder.file("s.db"), "SELECT type || ' ' || value FROM entries WHERE key = 'k'"), "text v");
}

TEST(MorrStandard, ReadsNothingFromARowThatIsNotItsOwn) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    store.put("v", "k");
    for (const char* row : {"type = 'integer'", "type = 'colour'", "type = 'text', value = 3", "type = 'real'"}) {
        runSQL(folder.file("s.db"), std::string("UPDATE entries SET ") + row);
        EXPECT_EQ(store.get("k"), std::nullopt) << row;
        EXPECT_EQ(store.all(), StoredValues{}) << row;
    }
    store.put("mended", "k");
    EXPECT_EQ(text(store, "k"), "mended");
}

TEST(MorrStandard, BeginsAnewWhereItsFileWasDeletedOrReplaced) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    store.put("v", "k");
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(folder.file("s.db") + suffix);
    EXPECT_EQ(store.get("k"), std::nullopt);
    store.put("v", "k");
    EXPECT_EQ(textIn(folder.file("s.db"), "k"), "v");
    EXPECT_EQ(store.status().kind, Kind::open);
}

TEST(MorrStandard, TakesCallsFromManyThreads) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&store, i] {
            for (int n = 0; n < 25; ++n) {
                store.put(n, std::to_string(i));
                store.get(std::to_string((i + 1) % 4));
                store.all();
                store.status();
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    const StoredValue last = std::int64_t{24};
    EXPECT_EQ(store.all(), (StoredValues{{"0", last}, {"1", last}, {"2", last}, {"3", last}}));
}

}  // namespace
}  // namespace quorin::morr
