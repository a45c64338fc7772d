#include "quorin/platform/foundation/File.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>

namespace quorin::foundation {
namespace {

/// The first room for a file that tells no size.
constexpr std::size_t unknownSize = 16384;

class Descriptor {
public:
    explicit Descriptor(const std::string& path) {
        do {
            number_ = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
        } while (number_ < 0 && errno == EINTR);
    }
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }

private:
    int number_ = -1;
};

FileRead failed(int code) { return {.failure = std::error_code(code, std::generic_category())}; }

void resize(std::string& bytes, std::size_t size, std::size_t padding) {
    if (size > bytes.max_size() || padding > bytes.max_size() - size) throw std::bad_alloc();
    bytes.reserve(size + padding);
    bytes.resize(size);
}

ssize_t readSome(int descriptor, char* into, std::size_t room) {
    ssize_t count = 0;
    do {
        count = read(descriptor, into, room);
    } while (count < 0 && errno == EINTR);
    return count;
}

}  // namespace

FileRead readFile(const std::string& path, std::size_t padding, std::size_t limit) {
    if (path.find('\0') != std::string::npos) return failed(ENOENT);
    const Descriptor file(path);
    struct stat facts{};
    if (file.number() < 0 || fstat(file.number(), &facts) != 0) return failed(errno);
    if (S_ISDIR(facts.st_mode)) return failed(EISDIR);

    // One byte more than the size: the read that finds the end needs room, and the string need not grow for it.
    const std::size_t size = S_ISREG(facts.st_mode) ? static_cast<std::size_t>(facts.st_size) : 0;
    if (size > limit) return failed(EFBIG);
    FileRead result;
    resize(result.bytes, size > 0 ? size + 1 : unknownSize, padding);
    std::size_t used = 0;
    for (;;) {
        if (used > limit) return failed(EFBIG);
        if (used == result.bytes.size()) resize(result.bytes, used + std::min(used, limit - used) + 1, padding);
        const ssize_t count = readSome(file.number(), result.bytes.data() + used, result.bytes.size() - used);
        if (count < 0) return failed(errno);
        if (count == 0) break;
        used += static_cast<std::size_t>(count);
    }
    result.bytes.resize(used);
    return result;
}

}  // namespace quorin::foundation
