#include "quorin/platform/morr/StoreFile.hpp"

#include "tests/platform/morr/StoreTesting.hpp"
#include "tests/support/Child.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cstring>

namespace quorin::morr {
namespace {

using support::becomeNobody;
using support::contentOf;
using support::inChild;
using support::openToAll;
using support::TemporaryFolder;

/// The status of a store on the path that has been put something, which it must still know.
Status statusAfterPut(const std::string& path) {
    MorrStandard store({.path = path});
    store.put("v", "k");
    return text(store, "k") == "v" ? store.status() : Status{Kind::notOpened, "forgot its value"};
}

void expectInMemory(const std::string& path, const std::string& words) {
    const Status status = statusAfterPut(path);
    EXPECT_EQ(status.kind, Kind::unavailable);
    EXPECT_NE(status.message.find("'" + path + "' " + words), std::string::npos) << status.message;
}

TEST(StoreFile, IsMadeForItsUserAlone) {
    const TemporaryFolder folder;
    const std::string path = folder.file("a/b/s.db");
    const mode_t before = umask(0);
    MorrStandard store({.path = path});
    store.put("v", "k");
    umask(before);
    for (const char* suffix : {"", "-wal", "-shm"}) EXPECT_EQ(modeOf(path + suffix), 0600U) << suffix;
    EXPECT_EQ(modeOf(folder.file("a")), 0700U);
    EXPECT_EQ(modeOf(folder.file("a/b")), 0700U);
}

TEST(StoreFile, LeavesTheModesOfWhatIsThere) {
    const TemporaryFolder folder;
    chmod(folder.path().c_str(), 0755);
    chmod(folder.write("s.db", "").c_str(), 0640);
    EXPECT_EQ(statusAfterPut(folder.file("s.db")).kind, Kind::open);
    EXPECT_EQ(modeOf(folder.path()), 0755U);
    EXPECT_EQ(modeOf(folder.file("s.db")), 0640U);
}

TEST(StoreFile, MayHaveAnyName) {
    const TemporaryFolder folder;
    for (const char* name : {"file:x?mode=memory", "a b%41#'\"", "\xff\xc3\xa4", ":memory:"}) {
        EXPECT_EQ(statusAfterPut(folder.file(name)).kind, Kind::open) << name;
        EXPECT_EQ(textIn(folder.file(name), "k"), "v") << name;
    }
}

TEST(StoreFile, MayBeALinkToAFileOfTheUser) {
    const TemporaryFolder folder;
    MorrStandard({.path = folder.file("real.db")}).put("there", "old");
    std::filesystem::create_symlink("real.db", folder.file("link.db"));
    EXPECT_EQ(textIn(folder.file("link.db"), "old"), "there");
    EXPECT_EQ(statusAfterPut(folder.file("link.db")).kind, Kind::open);
    EXPECT_EQ(textIn(folder.file("real.db"), "k"), "v");
}

/// A file that is not the user's: one that root gives away, or root's own for everybody else.
std::string fileOfAnotherUser(const TemporaryFolder& folder) {
    if (geteuid() != 0) return "/etc/passwd";
    const std::string theirs = folder.write("theirs.db", "theirs");
    EXPECT_EQ(chown(theirs.c_str(), 65534, 65534), 0);
    return theirs;
}

TEST(StoreFile, IsNoLinkToAFileOfAnotherUser) {
    const TemporaryFolder folder;
    const std::string theirs = fileOfAnotherUser(folder);
    const std::string before = contentOf(theirs);
    std::filesystem::create_symlink(theirs, folder.file("link.db"));
    expectInMemory(folder.file("link.db"), "is a link to a file of another user");
    EXPECT_EQ(contentOf(theirs), before);
}

TEST(StoreFile, IsNoLinkToNothing) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("nothing", folder.file("link.db"));
    expectInMemory(folder.file("link.db"), "is a link that leads to no file");
    EXPECT_FALSE(std::filesystem::exists(folder.file("nothing")));
}

TEST(StoreFile, IsNoDirectoryPipeOrDevice) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("d"));
    mkfifo(folder.file("p").c_str(), 0600);
    expectInMemory(folder.file("d"), "is a directory");
    expectInMemory(folder.file("p"), "is a pipe");
    expectInMemory("/dev/null", "is a device");
    std::filesystem::create_symlink("p", folder.file("link"));
    expectInMemory(folder.file("link"), "is a pipe");
}

TEST(StoreFile, IsNoSocket) {
    const TemporaryFolder folder;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, folder.file("s").c_str(), sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    expectInMemory(folder.file("s"), "is a socket");
    close(socket);
}

TEST(StoreFile, HasAName) {
    const TemporaryFolder folder;
    expectInMemory("", "has no file name");
    expectInMemory(folder.path() + "/", "has no file name");
    expectInMemory(folder.file(std::string("a\0b", 3)), "has no file name");
}

TEST(StoreFile, NeedsADirectoryThatCanBeMade) {
    const TemporaryFolder folder;
    folder.write("file", "x");
    expectInMemory(folder.file("file/s.db"), "cannot be reached");
    expectInMemory("/proc/none/s.db", "has no directory, and it cannot be made");
    expectInMemory(folder.file(std::string(300, 'n')), "cannot be reached");
}

TEST(StoreFile, OfAnUnprivilegedUserNeedsPermission) {
    const TemporaryFolder folder;
    openToAll(folder);
    std::filesystem::create_directory(folder.file("closed"));
    chmod(folder.file("closed").c_str(), 0555);
    const auto messageFor = [&](const std::string& path) {
        return inChild([&] { return becomeNobody(), statusAfterPut(path).message; });
    };
    EXPECT_NE(messageFor(folder.file("closed/s.db")).find("cannot be made (Permission denied)"), std::string::npos);
    EXPECT_NE(messageFor(folder.file("closed/d/s.db")).find("has no directory, and it cannot"), std::string::npos);
    chmod(folder.file("closed").c_str(), 0);
    EXPECT_NE(messageFor(folder.file("closed/s.db")).find("cannot be reached (Perm"), std::string::npos);
}

TEST(StoreFile, ThatMayNotBeReadIsKeptOutOf) {
    const TemporaryFolder folder;
    openToAll(folder);
    MorrStandard({.path = folder.file("s.db")}).put("old", "k");
    chmod(folder.file("s.db").c_str(), 0);
    const std::string message = inChild([&] { return becomeNobody(), statusAfterPut(folder.file("s.db")).message; });
    EXPECT_NE(message.find("cannot be used (unable to open database file: Permission denied)"), std::string::npos)
        << message;
}

}  // namespace
}  // namespace quorin::morr
