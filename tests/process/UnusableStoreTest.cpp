#include "quorin/core/ConfigurationManager.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/Child.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace quorin {
namespace {

namespace fs = std::filesystem;
using Instance = ConfigurationManager::Instance;
using Kind = morr::Status::Kind;
using support::contentOf;
using support::inChild;
using support::TemporaryFolder;
using testing::StartsWith;

std::string numberOf(Kind kind) { return std::to_string(static_cast<int>(kind)); }

/// The life of an identity: what was observed, what is read in the end, and how the store fares.
std::string lifeOn(const morr::Options& options) {
    Platform platform = phone(":memory:");
    platform.store = std::make_shared<MorrStandard>(options);
    Instance manager(platform);
    std::string life;
    manager.kovaObserver().subscribe({.next = [&](const auto& value) { life += value.value_or("none") + " "; }});
    const bool isBegun = manager.parentProfileID().size() == 37;
    manager.setKova("one");
    manager.setKova(std::nullopt);
    manager.setKova("two");
    manager.setChildProfileID("child");
    life += isBegun ? "| " : "without a parent ";
    for (const auto& [name, value] : manager.defaultHeaders()) life += name == "KOVA" ? value + " " : "";
    life += manager.kova().value_or("lost") + " " + manager.childProfileID() + " ";
    return life + numberOf(platform.store->status().kind) + " " + platform.store->status().message;
}

/// In a process that no file mode lets through.
std::string lifeOfNobodyOn(const morr::Options& options) {
    return inChild([&] { return support::becomeNobody(), lifeOn(options); });
}

std::string wholeLife(Kind kind) { return "one none two | two two child " + numberOf(kind) + " "; }
std::string wholeLife(Kind kind, const std::string& path, const std::string& words) {
    return wholeLife(kind) + "the store '" + path + "' " + words;
}

std::string setAsideIn(const std::string& folder) {
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().filename().string().starts_with("store.db.damaged-")) return entry.path();
    }
    return "none";
}

/// A file that damage has befallen: cut off, or other bytes from the first or the second page on.
std::vector<std::string> damagedFiles() {
    const Testbed bed;
    for (const char* key : {"a", "b", "c"}) bed.put(key, std::string(6000, 'v'));
    const std::string sound = contentOf(bed.storePath());
    std::mt19937 random(20240229);
    std::string bytes(sound.size(), '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    return {sound.substr(0, 1),
            sound.substr(0, 99),
            sound.substr(0, 5000),
            sound.substr(0, sound.size() - 1),
            bytes,
            sound.substr(0, 4096) + bytes.substr(4096)};
}

TEST(IdentityOnADamagedStore, BeginsANewOneAndKeepsTheOld) {
    for (const std::string& damaged : damagedFiles()) {
        const TemporaryFolder folder;
        support::openToAll(folder);
        const std::string path = folder.write("store.db", damaged);
        chmod(path.c_str(), 0666);
        EXPECT_THAT(lifeOfNobodyOn({.path = path}), StartsWith(wholeLife(Kind::setAside, path, "was damaged (")));
        EXPECT_TRUE(contentOf(setAsideIn(folder.path())) == damaged) << damaged.size();
        EXPECT_EQ(Instance(phone(path)).kova(), "two");
    }
}

TEST(IdentityOnADamagedStore, LivesInMemoryWhereItHasToStay) {
    for (const std::string& damaged : damagedFiles()) {
        const TemporaryFolder folder;
        support::openToAll(folder);
        const std::string path = folder.write("store.db", damaged);
        chmod(path.c_str(), 0666);
        EXPECT_THAT(lifeOfNobodyOn({.path = path, .setAsideDamaged = false}),
                    StartsWith(wholeLife(Kind::unavailable, path, "cannot be used (")));
        EXPECT_TRUE(contentOf(path) == damaged) << damaged.size();
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
    }
}

TEST(IdentityOnADirectory, LivesInMemory) {
    const TemporaryFolder folder;
    fs::create_directory(folder.file("d"));
    EXPECT_THAT(lifeOn({.path = folder.file("d")}),
                StartsWith(wholeLife(Kind::unavailable, folder.file("d"), "is a directory;")));
    EXPECT_TRUE(fs::is_empty(folder.file("d")));
}

TEST(IdentityOnAStoreThatCanBeReadOnly, BeginsWithItsValuesAndChangesNone) {
    for (const mode_t folderMode : {0777U, 0555U}) {
        const Testbed bed;
        Instance(bed.start()).setKova("kept");
        chmod(bed.storePath().c_str(), 0444);
        chmod(bed.folder().path().c_str(), folderMode);
        EXPECT_THAT(lifeOfNobodyOn({.path = bed.storePath()}),
                    StartsWith(wholeLife(Kind::readOnly, bed.storePath(), "can be read only;")));
        EXPECT_EQ(inChild([&] { return support::becomeNobody(), *Instance(bed.start()).kova(); }), "kept");
        EXPECT_EQ(bed.stored("com.vexodigitalMedia.kova"), "kept");
    }
}

TEST(IdentityInAFolderThatIsNotWritable, LivesInMemory) {
    const TemporaryFolder folder;
    chmod(folder.path().c_str(), 0555);
    const std::string path = folder.file("store.db");
    EXPECT_THAT(lifeOfNobodyOn({.path = path}),
                StartsWith(wholeLife(Kind::unavailable, path, "cannot be made (Permission denied);")));
}

/// A file that is not this user's, and not for reading: one of root's, whoever runs the tests.
std::string fileOfAnotherUser(const TemporaryFolder& folder) {
    if (geteuid() != 0) return "/etc/shadow";
    Instance(phone(folder.file("store.db"))).setKova("theirs");
    return folder.file("store.db");
}

TEST(IdentityOnAStoreOfAnotherUser, LivesInMemory) {
    const TemporaryFolder folder;
    support::openToAll(folder);
    const std::string path = fileOfAnotherUser(folder);
    const std::string before = contentOf(path);
    EXPECT_THAT(lifeOfNobodyOn({.path = path}),
                StartsWith(wholeLife(Kind::unavailable, path,
                                     "cannot be used (unable to open database file: Permission denied);")));
    EXPECT_EQ(contentOf(path), before);
    EXPECT_EQ(setAsideIn(folder.path()), "none");
}

TEST(IdentityOnAFullDisk, LivesInMemoryFromTheStart) {
    const TemporaryFolder folder;
    const std::string path = folder.file("store.db");
    EXPECT_THAT(inChild([&] { return support::limitFiles(0), lifeOn({.path = path}); }),
                StartsWith(wholeLife(Kind::unavailable, path, "cannot be used (")));
    EXPECT_EQ(Instance(phone(path)).kova(), std::nullopt);
}

TEST(IdentityOnAFullDisk, KeepsWhatItWasAssignedUntilThereIsSpace) {
    const Testbed bed;
    const std::string said = inChild([&] {
        Instance manager(bed.start());
        manager.setKova("old");
        support::limitFiles(100000);
        manager.setKova(std::string(200000, 'v'));
        const std::string failed = numberOf(manager.platform().store->status().kind);
        const std::string now =
            std::to_string(manager.kova()->size()) + bed.stored("com.vexodigitalMedia.kova").value();
        support::limitFiles(RLIM_INFINITY);
        manager.setChildProfileID("child");
        return failed + " " + now + " " + numberOf(manager.platform().store->status().kind);
    });
    EXPECT_EQ(said, numberOf(Kind::writeFailed) + " 200000old " + numberOf(Kind::open));
    EXPECT_EQ(Instance(bed.start()).kova()->size(), 200000U);
    EXPECT_EQ(Instance(bed.start()).childProfileID(), "child");
}

}  // namespace
}  // namespace quorin
