#include "quorin/platform/morr/MorrStandard.hpp"

#include "tests/platform/morr/RawDatabase.hpp"
#include "tests/platform/morr/StoreTesting.hpp"
#include "tests/support/Child.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace quorin::morr {
namespace {

using support::becomeNobody;
using support::Child;
using support::contentOf;
using support::inChild;
using support::TemporaryFolder;

/// A sound store of several pages, as its bytes.
const std::string& soundFile() {
    static const std::string& content = *new std::string([] {
        const TemporaryFolder folder;
        MorrStandard({.path = folder.file("s.db")}).put("v", "k");
        runSQL(folder.file("s.db"),
               "WITH RECURSIVE n (i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 199)"
               " INSERT INTO entries SELECT 'key' || i, 'text', hex(zeroblob(100)) FROM n");
        return contentOf(folder.file("s.db"));
    }());
    return content;
}

/// The files set aside in a directory, without their journals.
std::vector<std::string> setAsideIn(const std::string& folder) {
    auto names = namesWith(folder, "damaged");
    std::erase_if(names, [](const std::string& name) { return name.ends_with("-wal") || name.ends_with("-shm"); });
    return names;
}

std::string overwritten(std::string file, std::size_t from, std::size_t count) {
    for (std::size_t i = from; i < from + count; ++i) file[i] = '\x5a';
    return file;
}

/// A file with a page whose first row lies: its size wraps round where SQLite counts the pages that it takes, and its
/// first column goes on behind the end of the first. `pointer` is where the page says where the row is, `size` how many
/// bytes its own size takes, `columns` how many stand before the types of its columns, and `types` those in their
/// place.
std::string lying(std::string file, std::size_t page, std::size_t pointer, std::size_t size, std::size_t columns,
                  const std::string& types) {
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(file[page + pointer + i]); };
    const std::size_t row = (std::size_t{at(0)} << 8U) + at(1);
    std::string lie = "\x8f\xff\xff\xff\x7f" + file.substr(page + row + size, 4096 - row - size);
    lie.replace(5 + columns, types.size(), types);
    constexpr std::size_t to = 1000;
    file.replace(page + to, lie.size(), lie);
    file[page + pointer] = static_cast<char>(to >> 8U);
    file[page + pointer + 1] = static_cast<char>(to & 0xFFU);
    return file;
}

/// A store of one value, on its second page.
const std::string& fileOfOne() {
    static const std::string& content = *new std::string([] {
        const TemporaryFolder folder;
        MorrStandard({.path = folder.file("s.db")}).put(std::string(900, 'y'), "k");
        return contentOf(folder.file("s.db"));
    }());
    return content;
}

std::string lyingOfItself() { return lying(fileOfOne(), 0, 108, 1, 2, "\x8f\x7f"); }
std::string lyingOfARow() { return lying(fileOfOne(), 4096, 8, 2, 1, "\x8f\x7f\x15\x01"); }

const std::vector<std::string>& damagedFiles() {
    static const auto& files = *new std::vector<std::string>{
        "not a database",
        std::string(100000, 'x'),
        std::string(4096, '\0'),
        soundFile().substr(0, 50),
        soundFile().substr(0, 4096),
        soundFile().substr(0, 10000),
        soundFile().substr(0, soundFile().size() - 1),
        overwritten(soundFile(), 0, 16),
        overwritten(soundFile(), 4096, 4096),
        overwritten(soundFile(), 12288, 600),
        lyingOfItself(),
        lyingOfARow(),
    };
    return files;
}

TEST(DamagedStore, IsSetAsideAndBegunAnew) {
    for (const std::string& content : damagedFiles()) {
        const TemporaryFolder folder;
        MorrStandard store({.path = folder.write("s.db", content)});
        EXPECT_EQ(store.all(), StoredValues{}) << content.size();
        store.put("v", "k");
        EXPECT_EQ(store.status().kind, Kind::setAside);
        EXPECT_EQ(textIn(folder.file("s.db"), "k"), "v");
        const auto aside = setAsideIn(folder.path());
        ASSERT_EQ(aside.size(), 1U);
        EXPECT_TRUE(contentOf(folder.file(aside[0])) == content);
        EXPECT_NE(store.status().message.find(folder.file(aside[0])), std::string::npos) << store.status().message;
    }
}

TEST(DamagedStore, ThatLiesOfItselfIsNotTakenForMissingMemory) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.write("s.db", lyingOfItself()), .setAsideDamaged = false});
    EXPECT_EQ(store.get("k"), std::nullopt);
    EXPECT_EQ(store.status().kind, Kind::unavailable);
}

TEST(DamagedStore, ThatLiesOfARowIsNotTakenForMissingMemory) {
    const TemporaryFolder folder;
    MorrStandard store({.path = folder.write("s.db", lyingOfARow()), .setAsideDamaged = false});
    EXPECT_EQ(store.get("k"), std::nullopt);
    EXPECT_EQ(store.status().kind, Kind::unavailable);
}

TEST(DamagedStore, IsNamedAfterTheTime) {
    const TemporaryFolder folder;
    MorrStandard({.path = folder.write("s.db", "junk")}).put("v", "k");
    const auto aside = setAsideIn(folder.path());
    ASSERT_EQ(aside.size(), 1U);
    EXPECT_THAT(aside[0], testing::MatchesRegex("s\\.db\\.damaged-[0-9]{8}T[0-9]{6}Z"));
    EXPECT_EQ(modeOf(folder.file("s.db")), 0600U);
}

TEST(DamagedStore, NeverReplacesAnEarlierOne) {
    const TemporaryFolder folder;
    for (int i = 0; i < 5; ++i) {
        MorrStandard({.path = folder.write("s.db", "junk " + std::to_string(i))}).put("v", "k");
    }
    EXPECT_EQ(setAsideIn(folder.path()).size(), 5U);
}

TEST(DamagedStore, StaysWhereTheHostWantsItTo) {
    for (const std::string& content : damagedFiles()) {
        const TemporaryFolder folder;
        MorrStandard store({.path = folder.write("s.db", content), .setAsideDamaged = false});
        store.put("v", "k");
        EXPECT_EQ(text(store, "k"), "v");
        EXPECT_EQ(store.status().kind, Kind::unavailable);
        EXPECT_TRUE(contentOf(folder.file("s.db")) == content);
        EXPECT_EQ(namesWith(folder.path(), ""), std::vector<std::string>{"s.db"});
    }
}

TEST(DamagedStore, TakesItsJournalWithIt) {
    const TemporaryFolder folder;
    folder.write("s.db", "junk");
    folder.write("s.db-wal", "journal");
    MorrStandard({.path = folder.file("s.db")}).put("v", "k");
    const auto aside = namesWith(folder.path(), "-wal");
    ASSERT_EQ(aside.size(), 1U);
    EXPECT_EQ(contentOf(folder.file(aside[0])), "journal");
    EXPECT_EQ(aside[0].find("s.db.damaged-"), 0U);
}

/// What a killed process left beside the file, which was emptied then.
std::string journalOfAnEmptiedFile(const std::string& path) {
    Child child([&](const Child::Say& say) {
        MorrStandard store({.path = path});
        store.put("v", "k");
        say("put");
        pause();
    });
    EXPECT_EQ(child.line(), "put");
    child.kill();
    child.finish();
    std::filesystem::resize_file(path, 0);
    return contentOf(path + "-wal");
}

TEST(DamagedStore, IsAnEmptiedFileWithItsJournal) {
    const TemporaryFolder folder;
    const std::string journal = journalOfAnEmptiedFile(folder.file("s.db"));
    MorrStandard store({.path = folder.file("s.db")});
    store.put("w", "k");
    EXPECT_EQ(store.status().kind, Kind::setAside);
    const auto aside = setAsideIn(folder.path());
    ASSERT_EQ(aside.size(), 1U);
    EXPECT_TRUE(contentOf(folder.file(aside[0] + "-wal")) == journal);
}

TEST(DamagedStore, EmptiedStaysWithItsJournalWhereTheHostWantsItTo) {
    const TemporaryFolder folder;
    const std::string journal = journalOfAnEmptiedFile(folder.file("s.db"));
    MorrStandard({.path = folder.file("s.db"), .setAsideDamaged = false}).put("w", "k");
    EXPECT_EQ(contentOf(folder.file("s.db")), "");
    EXPECT_TRUE(contentOf(folder.file("s.db-wal")) == journal && !journal.empty());
}

TEST(DamagedStore, BehindALinkIsSetAsideBesideItsFile) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("d"));
    folder.write("d/real.db", "junk");
    std::filesystem::create_symlink("d/real.db", folder.file("link.db"));
    MorrStandard({.path = folder.file("link.db")}).put("v", "k");
    EXPECT_EQ(setAsideIn(folder.file("d")).size(), 1U);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("link.db")));
}

TEST(DamagedStore, IsFoundWhileItIsInUse) {
    const TemporaryFolder folder;
    const std::string path = folder.write("s.db", soundFile());
    MorrStandard first({.path = path});
    MorrStandard second({.path = path});
    EXPECT_EQ(text(first, "key7").size(), 200U);
    EXPECT_EQ(text(second, "key7").size(), 200U);
    // By another process: closing the file in this one would drop the locks that the two hold.
    inChild([&] {
        const std::string junk(soundFile().size(), 'x');
        std::fstream(path, std::ios::in | std::ios::out | std::ios::binary)
            .write(junk.data(), static_cast<std::streamsize>(junk.size()));
        return std::string();
    });
    second.put("makes the first read the file again", "key0");
    EXPECT_EQ(text(first, "key150"), "(none)");
    EXPECT_EQ(first.status().kind, Kind::setAside);
    first.put("v", "k");
    second.put("w", "l");
    EXPECT_EQ(MorrStandard({.path = path}).all(), (StoredValues{{"k", "v"}, {"l", "w"}}));
    EXPECT_EQ(setAsideIn(folder.path()).size(), 1U);
}

TEST(DamagedStore, IsFoundByTheOrderOfItsKeys) {
    const TemporaryFolder folder;
    std::string content = soundFile();
    content.replace(content.find("key150"), 6, "key999");
    MorrStandard store({.path = folder.write("s.db", content)});
    EXPECT_EQ(store.all(), StoredValues());
    EXPECT_EQ(store.status().kind, Kind::setAside);
}

/// They stand behind the texts, whatever their bytes are.
/// Where the file says of which type a key is; what stands there says that it is a text.
char& typeOf(std::string& file, std::string_view key) {
    char& type = file[file.find(key) - 4];
    EXPECT_EQ(static_cast<std::size_t>(type), 13 + 2 * key.size());
    return type;
}

TEST(DamagedStore, IsFoundByAKeyOfBytesAmongItsKeys) {
    const TemporaryFolder folder;
    std::string content = soundFile();
    typeOf(content, "key150") = 12 + 2 * 6;
    MorrStandard store({.path = folder.write("s.db", content)});
    EXPECT_EQ(store.all(), StoredValues());
    EXPECT_EQ(store.status().kind, Kind::setAside);
}

TEST(DamagedStore, IsFoundByAKeyThatIsANumberBehindItsKeys) {
    const TemporaryFolder folder;
    for (const std::string_view key : {"first!", "second"}) {
        MorrStandard({.path = folder.file("s.db")}).put(std::string(200, 'v'), key);
    }
    std::string content = contentOf(folder.file("s.db"));
    typeOf(content, "second") = 5;  // a number of six bytes
    MorrStandard store({.path = folder.write("s.db", content)});
    EXPECT_EQ(store.all(), StoredValues());
    EXPECT_EQ(store.status().kind, Kind::setAside);
}

TEST(DamagedStore, IsNoneWithKeysOfOtherTypes) {
    const TemporaryFolder folder;
    const std::string path = folder.write("s.db", soundFile());
    runSQL(path, "INSERT INTO entries VALUES (x'00', 'text', 'v')");
    MorrStandard store({.path = path});
    EXPECT_EQ(text(store, "key7").size(), 200U);
    EXPECT_EQ(store.status().kind, Kind::open);
}

/// What is broken only where a change would use it is read as it is, and found by the first change.
TEST(DamagedStore, IsFoundBeforeItIsChanged) {
    const TemporaryFolder folder;
    std::string content = soundFile();
    content[39] = 9;  // how many pages of the file are free
    MorrStandard store({.path = folder.write("s.db", content)});
    EXPECT_EQ(text(store, "key7").size(), 200U);
    EXPECT_EQ(store.status().kind, Kind::open);
    store.put("new", "k");
    EXPECT_EQ(store.status().kind, Kind::setAside);
    EXPECT_EQ(store.all(), (StoredValues{{"k", "new"}}));
}

TEST(DamagedStore, InAFolderThatIsNotWritableStays) {
    const TemporaryFolder folder;
    chmod(folder.write("s.db", "junk").c_str(), 0666);
    chmod(folder.path().c_str(), 0555);
    const std::string said = inChild([&] {
        becomeNobody();
        MorrStandard store({.path = folder.file("s.db")});
        store.put("v", "k");
        const std::string seen = text(store, "k");
        return seen + store.status().message;
    });
    EXPECT_EQ(said, "vthe store '" + folder.file("s.db")
                        + "' is damaged and cannot be renamed (Permission denied); move it away; until then values "
                          "last in memory only");
    EXPECT_EQ(contentOf(folder.file("s.db")), "junk");
}

TEST(DamagedStore, IsSetAsideOnceBySeveralProcesses) {
    const TemporaryFolder folder;
    const std::string path = folder.write("s.db", "junk");
    std::vector<std::unique_ptr<Child>> children;
    for (int i = 0; i < 6; ++i) {
        children.push_back(std::make_unique<Child>([&path, i](const Child::Say& say) {
            MorrStandard store({.path = path});
            store.put("v", std::to_string(i));
            say("put");
        }));
    }
    for (const auto& child : children) EXPECT_TRUE(child->finish());
    EXPECT_EQ(setAsideIn(folder.path()).size(), 1U);
    EXPECT_EQ(MorrStandard({.path = path}).all().size(), 6U);
}

}  // namespace
}  // namespace quorin::morr
