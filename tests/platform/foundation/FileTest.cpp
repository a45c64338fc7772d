#include "quorin/platform/foundation/File.hpp"

#include "tests/support/Child.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <thread>

namespace quorin::foundation {
namespace {

using support::inChild;
using support::TemporaryFolder;

int failureOf(const std::string& path) { return readFile(path).failure.value(); }

TEST(File, IsReadWholeAndByteForByte) {
    const TemporaryFolder folder;
    const std::string content("a\0\xff\r\n", 5);
    const FileRead read = readFile(folder.write("f", content));
    EXPECT_TRUE(read);
    EXPECT_EQ(read.bytes, content);
}

TEST(File, OfAnySizeIsRead) {
    const TemporaryFolder folder;
    for (const std::size_t size : {0U, 1U, 4095U, 4096U, 4097U, 16384U, 3000001U}) {
        const std::string content(size, 'x');
        EXPECT_EQ(readFile(folder.write("f", content)).bytes, content) << size;
    }
}

TEST(File, LeavesRoomForReadersThatLookAhead) {
    const TemporaryFolder folder;
    for (const std::size_t size : {0U, 1U, 100U, 70000U}) {
        const FileRead read = readFile(folder.write("f", std::string(size, 'x')), 64);
        EXPECT_GE(read.bytes.capacity(), size + 64) << size;
    }
    const FileRead sizeless = readFile("/proc/self/maps", 64);
    EXPECT_GE(sizeless.bytes.capacity(), sizeless.bytes.size() + 64);
}

TEST(File, WithoutASizeIsReadToItsEnd) {
    const FileRead read = readFile("/proc/self/status");
    EXPECT_EQ(read.bytes.substr(0, 5), "Name:");
    EXPECT_TRUE(readFile("/dev/null"));
    EXPECT_EQ(readFile("/dev/null").bytes, "");
}

TEST(File, MayBeAPipe) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    const std::string content(200000, 'p');
    std::thread writer([&] { folder.write("pipe", content); });
    const FileRead read = readFile(folder.file("pipe"), 64);
    writer.join();
    EXPECT_EQ(read.bytes, content);
    EXPECT_GE(read.bytes.capacity(), content.size() + 64);
}

TEST(File, MayBeStandardInput) {
    const TemporaryFolder folder;
    const std::string input = folder.write("input", "typed");
    const pid_t child = fork();
    if (child == 0) {
        const int descriptor = open(input.c_str(), O_RDONLY | O_CLOEXEC);
        dup2(descriptor, STDIN_FILENO);
        _exit(readFile("/dev/stdin").bytes == "typed" ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST(File, ThatIsMissingFails) {
    const TemporaryFolder folder;
    EXPECT_EQ(failureOf(folder.file("none")), ENOENT);
    EXPECT_EQ(failureOf(""), ENOENT);
    EXPECT_EQ(failureOf(folder.write("f", "x") + "/below"), ENOTDIR);
    EXPECT_EQ(failureOf(folder.file("f") + std::string("\0g", 2)), ENOENT);
}

TEST(File, ThatIsADirectoryFails) {
    const TemporaryFolder folder;
    EXPECT_EQ(failureOf(folder.path()), EISDIR);
    EXPECT_EQ(readFile(folder.path()).failure.message(), std::strerror(EISDIR));
}

TEST(File, ThatIsASocketFails) {
    const TemporaryFolder folder;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, folder.file("s").c_str(), sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(failureOf(folder.file("s")), ENXIO);
    close(socket);
}

TEST(File, ThatMayNotBeReadFails) {
    const TemporaryFolder folder;
    const std::string path = folder.write("secret", "x");
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && setuid(65534) != 0) _exit(2);
        _exit(failureOf(path) == EACCES ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST(File, BeyondTheLimitFails) {
    const TemporaryFolder folder;
    for (const std::size_t limit : {0U, 1U, 16383U, 16384U, 16385U, 100000U}) {
        EXPECT_EQ(readFile(folder.write("f", std::string(limit, 'x')), 0, limit).bytes.size(), limit);
        EXPECT_EQ(readFile(folder.write("f", std::string(limit + 1, 'x')), 0, limit).failure.value(), EFBIG) << limit;
    }
}

TEST(File, WithoutASizeFailsBeyondTheLimitToo) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    const auto readFrom = [&](std::size_t size, std::size_t limit) {
        std::thread writer([&] { folder.write("pipe", std::string(size, 'p')); });
        FileRead read = readFile(folder.file("pipe"), 64, limit);
        writer.join();
        return read;
    };
    EXPECT_EQ(readFrom(50000, 50000).bytes, std::string(50000, 'p'));
    EXPECT_EQ(readFrom(50001, 50000).failure.value(), EFBIG);
    EXPECT_EQ(readFrom(50001, 50000).bytes, "");
}

TEST(File, WithoutAnEndFails) {
    const std::string failure = inChild([] {
        const rlimit oneSecond{1, 1};  // before it has taken much memory, should it read on
        setrlimit(RLIMIT_CPU, &oneSecond);
        return std::to_string(readFile("/dev/zero", 64, 1000000).failure.value());
    });
    EXPECT_EQ(failure, std::to_string(EFBIG));
}

TEST(File, IsOfOneGibibyteAtTheMostUnlessTheCallerSaysMore) {
    const TemporaryFolder folder;
    const std::string path = folder.write("sparse", "");
    ASSERT_EQ(truncate(path.c_str(), (off_t{1} << 30) + 1), 0);
    EXPECT_EQ(failureOf(path), EFBIG);
}

TEST(File, LeavesNoDescriptorOpen) {
    const TemporaryFolder folder;
    const std::string path = folder.write("f", "x");
    const int before = dup(STDERR_FILENO);
    close(before);
    EXPECT_TRUE(readFile(path));
    EXPECT_FALSE(readFile(folder.path()));
    const int after = dup(STDERR_FILENO);
    close(after);
    EXPECT_EQ(before, after);
}

}  // namespace
}  // namespace quorin::foundation
