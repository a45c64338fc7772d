#include "quorin/platform/morr/StoreFile.hpp"

#include <fcntl.h>
#include <limits.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string_view>
#include <system_error>

namespace quorin::morr {
namespace {

/// What the database library adds to the name of a file. The journals go first when a file is renamed: one that stayed
/// alone would be taken for a part of the new file.
constexpr std::array<const char*, 3> journalSuffixes{"-wal", "-shm", "-journal"};

std::string because(std::string_view what, int code) {
    return std::string(what) + " (" + std::error_code(code, std::generic_category()).message() + ")";
}

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return path.substr(0, slash == 0 ? 1 : slash);
}

/// A directory held open to be locked against other processes of this library, and to be written to the disk.
class Folder {
public:
    explicit Folder(const std::string& path) : number_(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}
    ~Folder() {
        if (number_ >= 0) close(number_);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    void lock() const {
        while (flock(number_, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
    void sync() const {
        if (number_ >= 0) fsync(number_);
    }

private:
    int number_;
};

/// Makes what is missing of a directory's path; 0 or the `errno`.
int makeFolders(const std::string& path) {
    for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
        const std::string folder = path.substr(0, end);
        struct stat facts{};
        if (stat(folder.c_str(), &facts) != 0) {
            if (mkdir(folder.c_str(), 0700) == 0) {
                Folder(folderOf(folder)).sync();
            } else if (errno != EEXIST) {
                return errno;
            }
        }
        if (end == std::string::npos) return 0;
    }
}

/// Makes an empty file, unless one of the name is there; 0 or the `errno`. mknod(2), because it opens no descriptor.
int makeFile(const std::string& path) {
    return mknod(path.c_str(), S_IFREG | 0600, 0) == 0 || errno == EEXIST ? 0 : errno;
}

std::string_view wordFor(mode_t mode) {
    if (S_ISDIR(mode)) return "a directory";
    if (S_ISFIFO(mode)) return "a pipe";
    if (S_ISSOCK(mode)) return "a socket";
    return "a device";
}

/// Empty for a regular file, or a link to one of the own user.
std::string problemOf(const std::string& path, struct stat& facts) {
    const bool isLink = S_ISLNK(facts.st_mode);
    if (isLink && stat(path.c_str(), &facts) != 0) {
        return because("is a link that leads to no file", errno) + "; name a regular file";
    }
    if (!S_ISREG(facts.st_mode)) return "is " + std::string(wordFor(facts.st_mode)) + "; name a regular file";
    if (isLink && facts.st_uid != geteuid()) return "is a link to a file of another user; name a file of your own";
    return {};
}

/// Not taken so far, with the current second in its name.
std::string freeNameFor(const std::string& path) {
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y%m%dT%H%M%SZ", &utc);
    const std::string name = path + ".damaged-" + stamp;
    std::string candidate = name;
    struct stat facts{};
    for (int i = 2; lstat(candidate.c_str(), &facts) == 0; ++i) candidate = name + "-" + std::to_string(i);
    return candidate;
}

bool hasContent(const std::string& path) {
    struct stat facts{};
    return lstat(path.c_str(), &facts) == 0 && facts.st_size > 0;
}

/// What was there a moment ago, or was just made, and is not there is gone.
StoreFile unreachable(int code) {
    return {.problem = because("cannot be reached", code) + "; allow it or name another", .isGone = code == ENOENT};
}

}  // namespace

StoreFile StoreFile::at(const std::string& path) {
    if (path.empty() || path.back() == '/' || path.find('\0') != std::string::npos) {
        return {.problem = "has no file name; name a regular file"};
    }
    struct stat facts{};
    int reached = lstat(path.c_str(), &facts);
    if (reached != 0 && errno == ENOENT) {
        if (const int code = makeFolders(folderOf(path))) {
            return {.problem = because("has no directory, and it cannot be made", code) + "; make it or name another"};
        }
        if (const int code = makeFile(path)) {
            return {.problem = because("cannot be made", code) + "; allow it or name another"};
        }
        reached = lstat(path.c_str(), &facts);
    }
    if (reached != 0) return unreachable(errno);
    if (std::string problem = problemOf(path, facts); !problem.empty()) return {.problem = std::move(problem)};

    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
    if (!real) return unreachable(errno);
    return {.path = real.get(), .device = facts.st_dev, .inode = facts.st_ino};
}

bool StoreFile::isInPlace() const {
    struct stat facts{};
    return lstat(path.c_str(), &facts) == 0 && facts.st_dev == device && facts.st_ino == inode;
}

std::size_t StoreFile::size() const {
    struct stat facts{};
    return stat(path.c_str(), &facts) == 0 ? static_cast<std::size_t>(facts.st_size) : 0;
}

bool StoreFile::hasJournal() const { return hasWriteAheadLog() || hasContent(path + "-journal"); }

bool StoreFile::hasWriteAheadLog() const { return hasContent(path + "-wal"); }

std::string StoreFile::setAside() {
    const Folder folder(folderOf(path));
    folder.lock();
    if (!isInPlace()) return {};
    std::string name = freeNameFor(path);
    for (const char* suffix : journalSuffixes) {
        if (std::rename((path + suffix).c_str(), (name + suffix).c_str()) != 0 && errno != ENOENT) {
            return problem = because("is damaged and cannot be renamed", errno) + "; move it away", std::string();
        }
    }
    if (std::rename(path.c_str(), name.c_str()) != 0) {
        return problem = because("is damaged and cannot be renamed", errno) + "; move it away", std::string();
    }
    folder.sync();
    return name;
}

}  // namespace quorin::morr
