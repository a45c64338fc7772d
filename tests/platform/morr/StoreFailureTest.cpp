#include "quorin/platform/morr/MorrStandard.hpp"

#include "tests/platform/morr/RawDatabase.hpp"
#include "tests/platform/morr/StoreTesting.hpp"
#include "tests/support/Child.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

namespace quorin::morr {
namespace {

using support::becomeNobody;
using support::contentOf;
using support::inChild;
using support::limitFiles;
using support::openToAll;
using support::TemporaryFolder;

std::string kindName(Kind kind) { return std::to_string(static_cast<int>(kind)); }

TEST(StoreFailure, KeepsAValueThatCannotBeWrittenInMemory) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    const std::string said = inChild([&] {
        MorrStandard store({.path = path});
        store.put("old", "k");
        limitFiles(200000);
        store.put(std::string(1 << 20, 'n'), "k");
        const std::string now = std::to_string(text(store, "k").size()) + " " + std::to_string(store.all().size());
        return now + " " + kindName(store.status().kind) + " " + store.status().message;
    });
    EXPECT_EQ(said, "1048576 1 " + kindName(Kind::writeFailed) + " the store '" + path
                        + "' cannot be written (disk I/O error); make space on its disk, or look whether it is broken; until then "
                          "values last in memory only");
    EXPECT_EQ(textIn(path, "k"), "old");
}

TEST(StoreFailure, EndsWithTheNextPutThatSucceeds) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    const std::string said = inChild([&] {
        MorrStandard store({.path = path});
        store.put("old", "k");
        limitFiles(200000);
        store.put(std::string(1 << 20, 'n'), "k");
        store.put("new", "k");
        return kindName(store.status().kind) + text(store, "k");
    });
    EXPECT_EQ(said, kindName(Kind::open) + "new");
    EXPECT_EQ(textIn(path, "k"), "new");
}

TEST(StoreFailure, KeepsAValueThatWasPutWhereThereWasNone) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    const std::string said = inChild([&] {
        MorrStandard store({.path = path});
        store.put("old", "other");
        limitFiles(100000);
        store.putIfAbsent(std::string(200000, 'n'), "k");
        const std::string again = std::get<std::string>(store.putIfAbsent("late", "k"));
        return kindName(store.status().kind) + " " + std::to_string(again.size());
    });
    EXPECT_EQ(said, kindName(Kind::writeFailed) + " 200000");
    EXPECT_EQ(textIn(path, "k") + textIn(path, "other"), "(none)old");
}

TEST(StoreFailure, BringsWhatWasKeptBackToTheFileLater) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    const std::string said = inChild([&] {
        MorrStandard store({.path = path});
        store.put("old", "gone");
        limitFiles(200000);
        store.put(std::string(1 << 20, 'n'), "big");
        store.put("small", "other");
        const std::string failing = kindName(store.status().kind);
        limitFiles(RLIM_INFINITY);
        store.remove("gone");
        return failing + kindName(store.status().kind);
    });
    EXPECT_EQ(said, kindName(Kind::writeFailed) + kindName(Kind::open));
    EXPECT_EQ(textIn(path, "big").size(), 1U << 20);
    EXPECT_EQ(textIn(path, "other"), "small");
    EXPECT_EQ(textIn(path, "gone"), "(none)");
}

TEST(StoreFailure, AtTheFirstUseLeavesAFileThatWorksLater) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    const std::string said = inChild([&] {
        limitFiles(0);
        MorrStandard store({.path = path});
        store.put("v", "k");
        return kindName(store.status().kind) + text(store, "k");
    });
    EXPECT_EQ(said, kindName(Kind::unavailable) + "v");
    MorrStandard({.path = path}).put("w", "k");
    EXPECT_EQ(textIn(path, "k"), "w");
}

TEST(StoreFailure, LeavesAReadOnlyFileReadable) {
    const TemporaryFolder folder;
    openToAll(folder);
    const std::string path = folder.file("s.db");
    MorrStandard({.path = path}).put("old", "k");
    chmod(path.c_str(), 0444);
    for (const mode_t folderMode : {0777U, 0555U}) {
        chmod(folder.path().c_str(), folderMode);
        const std::string said = inChild([&] {
            becomeNobody();
            MorrStandard store({.path = path});
            std::string seen = text(store, "k");
            seen += kindName(store.status().kind);
            store.put("new", "k");
            store.remove("none");
            seen += text(store, "k") + std::to_string(store.all().size());
            return seen + kindName(store.status().kind) + store.status().message;
        });
        const std::string kind = kindName(Kind::readOnly);
        EXPECT_EQ(said, "old" + kind + "new1" + kind + "the store '" + path
                            + "' can be read only; allow writing it; until then values last in memory only");
    }
    EXPECT_EQ(textIn(path, "k"), "old");
}

TEST(StoreFailure, ReadsAWritableFileInAFolderThatIsNot) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    MorrStandard({.path = path}).put("old", "k");
    chmod(path.c_str(), 0666);
    chmod(folder.path().c_str(), 0555);
    const std::string said = inChild([&] {
        becomeNobody();
        MorrStandard store({.path = path});
        const std::string seen = text(store, "k");
        return seen + kindName(store.status().kind);
    });
    EXPECT_EQ(said, "old" + kindName(Kind::readOnly));
}

TEST(StoreFailure, LeavesADatabaseOfOthersAsItIs) {
    const TemporaryFolder folder;
    const std::string path = folder.file("s.db");
    for (const char* content : {"CREATE TABLE bookmarks (url)",
                                "PRAGMA user_version = 2; CREATE TABLE entries (key PRIMARY KEY, type, value)",
                                "PRAGMA user_version = 1; CREATE TABLE entries (key, value)",
                                "PRAGMA user_version = 1; CREATE TABLE entries (key, type, value)",
                                "PRAGMA user_version = 1", "PRAGMA encoding = 'UTF-16'; CREATE TABLE t (x)"}) {
        std::filesystem::remove(path);
        runSQL(path, content);
        const std::string before = contentOf(path);
        MorrStandard store({.path = path});
        store.put("v", "k");
        EXPECT_EQ(text(store, "k"), "v") << content;
        EXPECT_EQ(store.status().kind, Kind::unavailable) << content;
        EXPECT_EQ(namesWith(folder.path(), "damaged"), std::vector<std::string>{}) << content;
        EXPECT_TRUE(contentOf(path) == before) << content;
    }
}

TEST(StoreFailure, TellsNoStoredValue) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("d"));
    MorrStandard store({.path = folder.file("d")});
    store.put("a token", "k");
    EXPECT_EQ(store.status().message, "the store '" + folder.file("d")
                                          + "' is a directory; name a regular file; until then values last in memory "
                                            "only");
}

TEST(StoreFailure, InMemoryRemovesToo) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.path()});
    store.put("v", "k");
    store.put("w", "l");
    store.remove("k");
    EXPECT_EQ(store.all(), (StoredValues{{"l", "w"}}));
}

}  // namespace
}  // namespace quorin::morr
